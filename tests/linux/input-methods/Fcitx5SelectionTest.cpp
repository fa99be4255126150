#include <map>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Selection.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;
using testing::Optional;

TEST(Fcitx5Names, AreTheXServersForKeyboardLayouts) {
    const std::pair<const char*, const char*> names[] = {
        {"keyboard-us", "xkb:us"},
        {"keyboard-ru-phonetic", "xkb:ru:phonetic"},
        {"keyboard-us-dvorak-alt-intl", "xkb:us:dvorak-alt-intl"},
        {"pinyin", "fcitx:pinyin"},
        {"wbx-large", "fcitx:wbx-large"},
    };
    for (const auto& [name, id] : names) {
        EXPECT_EQ(idOfFcitx5InputMethod(name), id);
        EXPECT_EQ(fcitx5InputMethodOfID(id), name);
    }
    for (const auto* id : {"", "xkb:", "ibus:libpinyin"})
        EXPECT_EQ(fcitx5InputMethodOfID(id), "") << id;
}

TEST(Fcitx5Contexts, AreReadTolerantly) {
    const auto contexts =
        contextsInDebugInfo("Group [x11::0] has 2 InputContext(s)\n"
                            "  IC [aa] program:my program frontend:dbus cap:6000800072 focus:1\n"
                            "  IC [bb] program: frontend:xim cap:4000000000 focus:0 more:1\n"
                            "Group [wayland:x] has 1 InputContext(s)\n  IC [cc] new:2 focus:0\n"
                            "Input Context without group\n");
    EXPECT_THAT(contexts, Optional(testing::ElementsAre(Fcitx5Context{"aa", "dbus", true},
                                                        Fcitx5Context{"bb", "xim", false},
                                                        Fcitx5Context{"cc", "", false})));
    EXPECT_THAT(contextsInDebugInfo("Input Context without group"), Optional(testing::IsEmpty()));
    for (const auto* text : {"", "something else", "InputContext\n IC [aa focus:1",
                             "InputContext\n IC [a] focus:", "InputContext\n IC [aa] program:x focus:yes",
                             "InputContext\n IC ] focus:1 ["})
        EXPECT_EQ(contextsInDebugInfo(text), std::nullopt) << text;
}

/// Fcitx5 and programs that use it, on a clock that is moved by hand. What is said to it or by it takes a
/// while.
class Fcitx5SelectionTest : public testing::Test {
protected:
    enum Process { latin = 11, cyrillic, korean, terminal, otherTerminal, withoutText, launcher };

    static bool isTerminal(int process) { return process == terminal || process == otherTerminal; }

    void after(microseconds delay, std::function<void()> event) {
        events_.emplace(now_ + delay, std::move(event));
    }

    void pass(microseconds duration) {
        const auto end = now_ + duration;
        for (;;) {
            const auto due = selection_.nextDue();
            const bool isDue = due && *due <= end && (events_.empty() || *due <= events_.begin()->first);
            if (!isDue && (events_.empty() || events_.begin()->first > end)) break;
            now_ = std::max(now_, isDue ? *due : events_.begin()->first);
            if (isDue) {
                selection_.timePassed(now_);
            } else {
                const auto event = std::move(events_.begin()->second);
                events_.erase(events_.begin());
                event();
            }
        }
        now_ = end;
    }

    /// The context of that process, which terminals have by XIM, gets the focus.
    void focus(int process, int number = 0) {
        recent_ = {process, number};
        hasFocus_ = true;
        ++focuses_;
        contexts_.try_emplace(recent_, "keyboard-us");
        tell();
    }

    /// Who was in front loses the focus within a tenth of a second, as with Qt.
    void activate(int process, const char* wish) {
        if (recent_.first != process)
            after(100ms, [this, before = focuses_] { hasFocus_ = hasFocus_ && focuses_ != before; });
        selection_.activated({std::to_string(process), process}, layout_, now_);
        if (*wish && selection_.current() != wish) {
            selection_.select(wish, now_);
            ++selections_;
        }
    }

    void set(const std::string& inputMethod) {
        if (inputMethod == "none such" || contexts_.empty() || contexts_[recent_] == inputMethod) return;
        contexts_[recent_] = inputMethod;
        tell();
    }

    void tell() {
        if (!isTelling_ || !hasFocus_ || isTerminal(recent_.first)) return;
        const auto context = std::to_string(recent_.first) + '/' + std::to_string(recent_.second);
        const Fcitx5ContextNews::News news{context, recent_.first, contexts_[recent_]};
        after(newsTake_, [this, news] { selection_.told(news, now_); });
    }

    void answer(unsigned number) {
        Fcitx5Selection::Answer answer{std::vector<Fcitx5Context>(), isTelling_, {}};
        for (const auto& [context, inputMethod] : contexts_)
            answer.contexts->push_back(
                {"uuid" + std::to_string(context.first) + std::to_string(context.second),
                 isTerminal(context.first) ? "xim" : "dbus", hasFocus_ && context == recent_});
        if (!contexts_.empty()) answer.inputMethod = contexts_[recent_];
        after(callTakes_, [this, number, answer] { selection_.answered(number, answer, now_); });
    }

    /// It has the focus and some time.
    void enter(int process, int number = 0) {
        focus(process, number);
        pass(5ms);
    }
    void visit(int process, const char* wish, int number = 0) {
        activate(process, wish);
        focus(process, number);
        pass(1s);
    }
    std::string& has(int process, int number = 0) { return contexts_.at({process, number}); }
    int selections() { return std::exchange(selections_, 0); } ///< Since the last time.

    Fcitx5Selection::Time now_{1h};
    std::multimap<Fcitx5Selection::Time, std::function<void()>> events_;
    std::map<std::pair<int, int>, std::string> contexts_; ///< Input methods by process and number.
    std::pair<int, int> recent_;
    bool hasFocus_ = false;
    bool isTelling_ = true;
    microseconds callTakes_ = 150us, newsTake_ = 500us;
    int focuses_ = 0, asked_ = 0, selections_ = 0;
    std::string layout_ = "keyboard-us";
    std::vector<std::string> refused_;
    Fcitx5Selection selection_{{.ask =
                                    [this](unsigned number, const std::string& inputMethod) {
                                        ++asked_;
                                        after(callTakes_, [this, number, inputMethod] {
                                            if (!inputMethod.empty()) set(inputMethod);
                                            answer(number);
                                        });
                                    },
                                .refused = [this](const auto& name) { refused_.push_back(name); }}};
};

TEST_F(Fcitx5SelectionTest, TheContextOfTheApplicationInFrontIsServedWheneverItGetsTheFocus) {
    for (const bool isTelling : {true, false}) {
        for (const auto front : {cyrillic, terminal}) {
            for (const auto wait :
                 {-100000us, -5000us, -200us, 200us, 1000us, 95000us, 600000us, 4000000us}) {
                isTelling_ = isTelling;
                SCOPED_TRACE(testing::Message() << isTelling << front << " after " << wait.count() << " us");
                contexts_.clear();
                const bool isFirst = wait < 0us;
                visit(latin, "keyboard-us");
                if (isFirst) focus(front);
                pass(isFirst ? -wait : 0us);
                activate(front, "keyboard-ru");
                EXPECT_EQ(selection_.current(), "keyboard-ru");
                pass(isFirst ? 0us : wait);
                EXPECT_EQ(has(latin), "keyboard-us");
                if (!isFirst) focus(front);
                pass(wait > 1s ? 101ms : isTelling && front == cyrillic ? 2ms : 12ms);
                EXPECT_EQ(has(front), "keyboard-ru");
                EXPECT_EQ(has(latin), "keyboard-us");
                pass(20s);
                EXPECT_FALSE(selection_.nextDue());
            }
        }
    }
}

TEST_F(Fcitx5SelectionTest, EachContextOfTheApplicationIsServedUntilTheUserSelectsSomethingElse) {
    activate(cyrillic, "keyboard-ru");
    for (const auto context : {0, 1, 0}) {
        enter(cyrillic, context);
        EXPECT_EQ(has(cyrillic, context), "keyboard-ru");
    }
    set("hangul");
    pass(5ms);
    EXPECT_EQ(selection_.current(), "hangul");
    for (const auto context : {1, 2, 0})
        enter(cyrillic, context);
    EXPECT_EQ(selection_.current(), "hangul");
    EXPECT_EQ(has(cyrillic, 2), "keyboard-us");
    selection_.windowActivated(korean, now_); // the application runs a second time
    selection_.select("pinyin", now_);
    enter(korean);
    EXPECT_EQ(has(korean), "pinyin");
}

TEST_F(Fcitx5SelectionTest, WhatTheUserSelectsInATerminalIsSeenWhenSomethingHintsAtIt) {
    visit(terminal, "keyboard-ru");
    set("hangul");
    pass(1s);
    selection_.mayHaveChanged(now_);
    pass(1s);
    EXPECT_EQ(selection_.current(), "hangul");
    EXPECT_EQ(has(terminal), "hangul");
}

TEST_F(Fcitx5SelectionTest, OthersContextsAreLeftAlone) {
    focus(latin);
    activate(latin, "keyboard-us");
    pass(1s);
    visit(cyrillic, "keyboard-ru");
    enter(latin); // told before the activation
    EXPECT_EQ(has(latin), "keyboard-us");
    activate(latin, "");
    pass(1s);
    EXPECT_EQ(selection_.current(), "keyboard-us");
    // A launcher is no application in front; what is selected for it, or meanwhile, is for it as well.
    enter(launcher);
    EXPECT_EQ(has(launcher), "keyboard-us");
    selection_.select("pinyin", now_);
    pass(5ms);
    EXPECT_EQ(has(launcher), "pinyin");
    EXPECT_EQ(has(latin), "keyboard-us");
    // Two applications in one process: the other one's context keeps the focus for a moment.
    visit(korean, "hangul", 1);
    activate(korean, "keyboard-ru");
    pass(1s);
    enter(korean, 2);
    EXPECT_EQ(has(korean, 1), "hangul");
    EXPECT_EQ(has(korean, 2), "keyboard-ru");
    // A program in a sandbox does not tell its process.
    activate(cyrillic, "hangul");
    pass(100ms);
    enter(0);
    EXPECT_EQ(has(0), "hangul");
}

TEST_F(Fcitx5SelectionTest, OnlyWhatChangesSomethingIsSelected) {
    for (const int expected : {3, 0, 0}) {
        for (const auto& [process, wish] :
             {std::pair(latin, "keyboard-us"), {cyrillic, "keyboard-ru"}, {terminal, "hangul"}}) {
            visit(process, wish);
            EXPECT_EQ(has(process), wish);
        }
        EXPECT_EQ(selections(), expected);
        activate(withoutText, "keyboard-us");
        EXPECT_EQ(selection_.current(), "keyboard-us");
        pass(1s);
        EXPECT_EQ(selections(), expected / 3);
    }
    visit(cyrillic, "keyboard-ru", 1);
    EXPECT_EQ(has(cyrillic, 1), "keyboard-ru") << "a window that was not there before";
    EXPECT_EQ(selections(), 0);
    layout_ = "keyboard-ru";
    activate(withoutText, "keyboard-us");
    EXPECT_EQ(selections(), 1) << "it is typed with another layout now";
    pass(1s);
    visit(cyrillic, "keyboard-ru", 1);
    set("hangul");
    pass(1s);
    activate(latin, "keyboard-us");
    pass(1s);
    visit(cyrillic, "keyboard-ru", 1);
    EXPECT_EQ(selections(), 1) << "the user has changed it";
    // Somebody else changes what an application has that was left: contexts share it, say.
    visit(latin, "keyboard-us");
    has(cyrillic, 1) = "hangul";
    for (const int expected : {0, 1}) {
        visit(cyrillic, "keyboard-ru", 1);
        EXPECT_EQ(has(cyrillic, 1), "keyboard-ru");
        EXPECT_EQ(selections(), expected) << "memory is not relied upon any more";
        visit(latin, "keyboard-us");
        selections();
    }
}

TEST_F(Fcitx5SelectionTest, WhoHadTheFocusFirstIsNotToldOf) {
    isTelling_ = false;
    focus(cyrillic);
    isTelling_ = true;
    activate(cyrillic, "keyboard-ru");
    pass(1s);
    EXPECT_EQ(has(cyrillic), "keyboard-ru");
    set("hangul");
    pass(1s);
    EXPECT_EQ(selection_.current(), "hangul");
    EXPECT_EQ(has(cyrillic), "hangul");
}

TEST_F(Fcitx5SelectionTest, GivesUpInTime) {
    activate(withoutText, "keyboard-ru");
    pass(20s);
    EXPECT_TRUE(selection_.isWithoutContext());
    EXPECT_LT(asked_, 250);
    visit(latin, "none such");
    EXPECT_THAT(refused_, testing::ElementsAre("none such"));
    EXPECT_EQ(selection_.current(), "keyboard-us");
    activate(terminal, "hangul");
    selection_.giveUp();
    focus(terminal);
    pass(20s);
    EXPECT_EQ(has(terminal), "keyboard-us");
    EXPECT_EQ(selection_.current(), std::nullopt);
}

TEST_F(Fcitx5SelectionTest, AContextThatLosesTheFocusAtOnceHasItsOwnNevertheless) {
    for (const auto lost : {0us, 600us, 900us}) {
        const int number = focuses_;
        activate(latin, "hangul");
        pass(53ms); // It opens, and is not looked for at this moment.
        focus(latin, number);
        after(lost, [this] { hasFocus_ = false; });
        pass(1s);
        EXPECT_EQ(has(latin, number), "hangul");
        EXPECT_EQ(selection_.current(), "hangul");
        EXPECT_THAT(refused_, testing::IsEmpty());
        activate(cyrillic, "");
    }
}

TEST_F(Fcitx5SelectionTest, TheLastApplicationGetsItsOwnHoweverQuicklyTheyFollow) {
    std::mt19937 random{5}; // NOLINT(bugprone-random-generator-seed): the same each time
    const auto upTo = [&](int most) { return microseconds(std::uniform_int_distribution(0, most)(random)); };
    const std::pair<int, const char*> applications[] = {{latin, "keyboard-us"},
                                                        {cyrillic, "keyboard-ru"},
                                                        {korean, "hangul"},
                                                        {terminal, "pinyin"},
                                                        {otherTerminal, "hangul"}};
    for (int storm = 0; storm < 10000; ++storm) {
        const std::pair<int, const char*>* last = nullptr;
        contexts_.clear(); // Fcitx5 is another one each time.
        selection_.forget();
        activate(withoutText, "");
        callTakes_ = upTo(5000);
        newsTake_ = upTo(20000);
        isTelling_ = storm < 5000;
        for (auto count = 1 + upTo(6).count(); count > 0; --count) {
            const auto* next = &applications[upTo(4).count()];
            if (std::exchange(last, next) == next) continue;
            const auto begin = upTo(40000);
            after(begin, [this, next] { activate(next->first, next->second); });
            after(begin + upTo(10000), [this, next, storm] { focus(next->first, storm); });
            pass(begin + 10ms + upTo(20000));
        }
        pass(500ms);
        EXPECT_EQ(has(last->first, storm), last->second) << storm;
        EXPECT_EQ(selection_.current(), last->second) << storm;
    }
}

} // namespace
} // namespace quorvane
