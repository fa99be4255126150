#include <algorithm>
#include <deque>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/x11/applications/WindowInFront.h"

namespace quorvane {
namespace {

using Window = WindowInFront::Window;
enum Step { announce, moveFocus, list, close };
using Steps = std::vector<Step>;

/// An X server with a window manager that takes its steps in any order.
struct Display {
    WindowInFront rule;
    std::set<Window> told; ///< Of whose focus the rule is told from now on.
    Window focus = WindowInFront::none;
    std::vector<Window> news; ///< Who came to the front.

    void note(bool isNews) {
        if (isNews && rule.window() != WindowInFront::none) news.push_back(rule.window());
    }
    /// `isSeen`: false where the focus came before anybody had asked the window to tell of it.
    void take(Step step, Window window, bool isSeen = true) {
        switch (step) {
        case announce:
            note(rule.announced(window));
            told.insert(window);
            break;
        case list:
            note(rule.listed(window));
            told.insert(window);
            break;
        case moveFocus:
            if (told.contains(focus)) note(rule.unfocused(focus));
            focus = window;
            if (isSeen && told.contains(window)) note(rule.focused(window));
            break;
        case close:
            told.erase(window);
            note(rule.closed(window));
            break;
        }
    }
};

/// One way in which something comes to pass.
struct Course {
    Steps steps;
    bool isSeen = true;
    std::size_t noneAt = 0; ///< Before which step none is announced; behind the last one: never.
    bool isRepeated = false;

    void run(Display& display, Window window, Window closing = WindowInFront::none) const {
        for (std::size_t i = 0; i < steps.size(); ++i) {
            if (i == noneAt) display.note(display.rule.announced(WindowInFront::none));
            display.take(steps[i], steps[i] == close ? closing : window, isSeen);
        }
        if (isRepeated) display.take(announce, window);
    }
};

/// Every order of the steps, with all that may come beside them.
std::vector<Course> coursesOf(Steps steps, std::initializer_list<bool> seen = {true}) {
    std::ranges::sort(steps);
    std::vector<Course> courses;
    do {
        for (const bool isSeen : seen)
            for (std::size_t noneAt = 0; noneAt <= steps.size(); ++noneAt)
                for (const bool isRepeated : {false, true})
                    courses.push_back({steps, isSeen, noneAt, isRepeated});
    } while (std::ranges::next_permutation(steps).found);
    return courses;
}

TEST(WindowInFront, EachOneComesThereOnceWhateverTheOrder) {
    const auto openings = coursesOf({announce, moveFocus, list}, {true, false});
    const auto switches = coursesOf({announce, moveFocus});
    const auto closings = coursesOf({announce, moveFocus, close});
    std::size_t turn = 0;
    for (const auto& opening : openings) {
        for (const auto& next : openings) {
            const auto& change = switches[turn % switches.size()];
            const auto& closing = closings[turn++ % closings.size()];
            Display display;
            opening.run(display, 1);
            next.run(display, 2);
            change.run(display, 1);
            closing.run(display, 2, 1);
            ASSERT_EQ(display.news, (std::vector<Window>{1, 2, 1, 2})) << testing::PrintToString(
                std::vector{opening.steps, next.steps, change.steps, closing.steps});
        }
    }
}

TEST(WindowInFront, AnnouncementsThatLagBehindAreNoNews) {
    for (const std::size_t lag : {0U, 1U, 2U, 5U}) {
        Display display;
        std::deque<Window> late;
        std::vector<Window> focused;
        for (Window window = 1; window <= 4; ++window)
            display.take(list, window);
        for (Window turn = 0; turn < 40; ++turn) {
            const Window window = 1 + turn * turn % 7 % 4;
            if (display.focus != window) focused.push_back(window);
            display.take(moveFocus, window);
            late.push_back(window);
            if (late.size() <= lag) continue;
            display.take(announce, late.front());
            late.pop_front();
        }
        EXPECT_EQ(display.news, focused) << lag;
    }
}

TEST(WindowInFront, IsAManagedOneUntilItIsClosed) {
    WindowInFront rule;
    constexpr Window program = 1, menu = 2;
    EXPECT_FALSE(rule.focused(program)) << "told by nobody yet";
    EXPECT_TRUE(rule.listed(program));
    EXPECT_FALSE(rule.unfocused(program));
    EXPECT_FALSE(rule.focused(menu));
    EXPECT_FALSE(rule.unfocused(menu));
    EXPECT_FALSE(rule.focused(program));
    EXPECT_EQ(rule.window(), program);
    EXPECT_TRUE(rule.closed(program));
    EXPECT_EQ(rule.window(), WindowInFront::none);
    EXPECT_TRUE(rule.announced(program)) << "another one with its number";
}

} // namespace
} // namespace quorvane
