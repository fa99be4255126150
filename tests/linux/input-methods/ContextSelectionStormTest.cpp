#include <deque>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "platform/linux/input-methods/ContextSelection.h"

namespace quorvane {
namespace {

using Random = std::mt19937;
using Events = std::deque<std::function<void()>>;

struct Application {
    const char* wish;
    int process;
    bool isToldOf;
};
constexpr Application applications[] = {{"keyboard-us", 11, true},
                                        {"keyboard-ru", 12, true},
                                        {"hangul", 13, true},
                                        {"pinyin", 14, false},
                                        {"hangul", 15, false}};

/// A daemon like Fcitx5, its user and the programs. What one of them does is in its order, but what comes
/// first of several is chance.
class Desktop {
public:
    Desktop(Random& random, bool isTelling) : random_(random), isTelling_(isTelling) {}

    void activate(const Application& front) {
        const auto activates = [this, front] {
            selection_.activated({std::to_string(front.process), front.process}, "keyboard-us");
            if (selection_.current() != front.wish) selection_.select(front.wish);
        };
        const auto getsFocus = [this, front] {
            recent_ = front;
            contexts_.try_emplace(front.process, "keyboard-us");
            tell();
        };
        user_.emplace_back(activates);
        user_.insert(user_.end() - int(random_() % 2), getsFocus);
    }

    void pressHotKey(const char* wish) {
        user_.emplace_back([this, wish] { selection_.select(wish); });
    }

    void happens() {
        while (happensNext()) {
        }
        selection_.settled();
        while (happensNext()) {
        }
    }

    std::string has(const Application& application) { return contexts_[application.process]; }
    std::string current() const { return selection_.current().value_or("none"); }

private:
    bool happensNext() {
        std::vector<Events*> open;
        for (auto* events : {&user_, &calls_, &said_}) {
            if (!events->empty()) open.push_back(events);
        }
        const bool isLooking = selection_.nextLook().has_value();
        if (open.empty() && !isLooking) return false;
        const auto chosen = random_() % (open.size() + (isLooking ? 1 : 0));
        if (chosen == open.size()) {
            selection_.lookAgain();
        } else {
            const auto event = std::move(open[chosen]->front());
            open[chosen]->pop_front();
            event();
        }
        return true;
    }

    bool isToldOf(const Application& application) const { return isTelling_ && application.isToldOf; }

    void tell() {
        if (!isToldOf(recent_)) return;
        said_.emplace_back([this, process = recent_.process, has = has(recent_)] {
            ++told_;
            selection_.told({std::to_string(process), process}, has);
        });
    }

    void select(const std::string& inputMethod) {
        calls_.emplace_back([this, inputMethod] {
            if (!contexts_.empty() && std::exchange(contexts_[recent_.process], inputMethod) != inputMethod)
                tell();
            said_.emplace_back([this] { selection_.answered(true); });
        });
        look();
    }

    void look() {
        calls_.emplace_back([this, before = told_] {
            said_.emplace_back([this, before, has = has(recent_), recent = recent_] {
                if (before != told_) return; // It is overtaken.
                if (!has.empty() && (!isToldOf(recent) || told_ == 0))
                    selection_.seen("uuid" + std::to_string(recent.process), has, isToldOf(recent));
                else
                    selection_.seenNone();
            });
        });
    }

    Random& random_;
    const bool isTelling_;
    int told_ = 0;
    Events user_, calls_, said_;
    std::map<int, std::string> contexts_; ///< Their input methods.
    Application recent_{};                ///< Its context had the focus last.
    ContextSelection selection_{{.select = [this](const auto& inputMethod) { select(inputMethod); },
                                 .look = [this] { look(); },
                                 .refused = [](const auto& inputMethod) { ADD_FAILURE() << inputMethod; }}};
};

TEST(ContextSelection, FulfilsTheLastWishHoweverQuicklyTheyFollow) {
    Random random{5}; // NOLINT(bugprone-random-generator-seed): the same each time
    for (int storm = 0; storm < 10000; ++storm) {
        Desktop desktop(random, storm % 2 == 0);
        const Application* front = nullptr;
        const char* wish = nullptr;
        for (auto count = 1 + random() % 7; count > 0; --count) {
            const auto& chosen = applications[random() % std::size(applications)];
            wish = chosen.wish;
            if (front == &chosen || (front && random() % 4 == 0))
                desktop.pressHotKey(wish);
            else
                desktop.activate(*(front = &chosen));
        }
        desktop.happens();
        EXPECT_EQ(desktop.has(*front), wish) << storm;
        EXPECT_EQ(desktop.current(), wish) << storm;
    }
}

} // namespace
} // namespace quorvane
