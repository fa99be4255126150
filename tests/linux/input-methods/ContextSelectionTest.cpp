#include <iterator>
#include <map>
#include <random>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/input-methods/ContextSelection.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;
using State = ContextSelection::State;

/// A daemon like Fcitx5 and programs that use it, on a clock that is moved by hand. What is said to it or by
/// it takes a while. Its contexts are told of, but for those of terminals.
class ContextSelectionTest : public testing::Test {
protected:
    using Time = std::chrono::steady_clock::time_point;
    enum Process { latin = 11, cyrillic, korean, terminal, otherTerminal, withoutText, launcher };

    static bool isTerminal(int process) { return process == terminal || process == otherTerminal; }

    void after(microseconds delay, std::function<void()> event) {
        events_.emplace(now_ + delay, std::move(event));
    }

    void pass(microseconds duration) {
        const auto end = now_ + duration;
        for (;;) {
            const bool isDue =
                look_ && *look_ <= end && (events_.empty() || *look_ <= events_.begin()->first);
            if (!isDue && (events_.empty() || events_.begin()->first > end)) break;
            now_ = std::max(now_, isDue ? *look_ : events_.begin()->first);
            if (isDue) {
                look_.reset();
                selection_.lookAgain();
            } else {
                const auto event = std::move(events_.begin()->second);
                events_.erase(events_.begin());
                event();
            }
            moved();
        }
        now_ = end;
    }

    /// After whatever the selection was told.
    void moved() {
        const auto next = selection_.nextLook();
        if (!next)
            look_.reset();
        else if (!look_ || now_ + *next < *look_)
            look_ = now_ + *next;
    }

    /// The context of that process gets the focus.
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
        after(ContextSelection::settling, [this, activation = ++activations_] {
            if (activation == activations_) selection_.settled();
        });
        selection_.activated({std::to_string(process), process}, layout_);
        if (*wish && selection_.current() != wish) {
            selection_.select(wish);
            ++selections_;
        }
        moved();
    }

    void set(const std::string& inputMethod) {
        if (inputMethod == "none such" || contexts_.empty() || contexts_[recent_] == inputMethod) return;
        contexts_[recent_] = inputMethod;
        tell();
    }

    void tell() {
        if (!isTelling_ || !hasFocus_ || isTerminal(recent_.first)) return;
        after(newsTake_, [this, recent = recent_, inputMethod = contexts_[recent_]] {
            ++news_;
            const auto context = std::to_string(recent.first) + '/' + std::to_string(recent.second);
            selection_.told({context, recent.first}, inputMethod);
        });
    }

    void look() {
        ++asked_;
        after(callTakes_, [this, before = news_] {
            const auto process = hasFocus_ ? recent_.first : 0;
            const auto uuid = "uuid" + std::to_string(process) + std::to_string(recent_.second);
            const auto has = contexts_.empty() ? std::string() : contexts_[recent_];
            after(callTakes_, [=, this] {
                if (before != news_) return;
                const bool isNews = isTerminal(process) || news_ == 0 || !isTelling_;
                if (process != 0 && isNews)
                    selection_.seen(uuid, has, !isTerminal(process));
                else
                    selection_.seenNone(process == 0 ? std::optional(has) : std::nullopt);
            });
        });
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

    Time now_{1h};
    std::optional<Time> look_;
    std::multimap<Time, std::function<void()>> events_;
    std::map<std::pair<int, int>, std::string> contexts_; ///< Input methods by process and number.
    std::pair<int, int> recent_;
    bool hasFocus_ = false;
    bool isTelling_ = true;
    microseconds callTakes_ = 150us, newsTake_ = 500us;
    int focuses_ = 0, activations_ = 0, asked_ = 0, selections_ = 0, news_ = 0;
    std::string layout_ = "keyboard-us";
    std::vector<std::string> refused_;
    ContextSelection selection_{{.select =
                                     [this](const auto& inputMethod) {
                                         after(callTakes_, [this, inputMethod] {
                                             set(inputMethod);
                                             after(callTakes_, [this] { selection_.answered(true); });
                                         });
                                         look();
                                     },
                                 .look = [this] { look(); },
                                 .refused = [this](const auto& name) { refused_.push_back(name); }}};
};

TEST_F(ContextSelectionTest, TheContextOfTheApplicationInFrontIsServedWheneverItGetsTheFocus) {
    for (const bool isTelling : {true, false}) {
        for (const auto front : {cyrillic, terminal}) {
            for (const auto wait :
                 {-100000us, -5000us, -200us, 200us, 1000us, 95000us, 600000us, 4000000us}) {
                isTelling_ = isTelling;
                SCOPED_TRACE(testing::Message() << isTelling << front << " after " << wait.count() << " us");
                contexts_.clear();
                selection_.forget();
                const bool isFirst = wait < 0us;
                visit(latin, "keyboard-us");
                if (isFirst) focus(front);
                pass(isFirst ? -wait : 0us);
                activate(front, "keyboard-ru");
                EXPECT_EQ(selection_.current(), "keyboard-ru");
                pass(isFirst ? 0us : wait);
                EXPECT_EQ(has(latin), "keyboard-us");
                if (!isFirst) focus(front);
                const bool isTold = isTelling && front == cyrillic;
                pass(isTold ? 2ms : wait < 2ms ? 5ms : wait > 1s ? 4s : 33ms);
                EXPECT_EQ(has(front), "keyboard-ru");
                EXPECT_EQ(has(latin), "keyboard-us");
                pass(20s);
                EXPECT_FALSE(look_);
            }
        }
    }
}

TEST_F(ContextSelectionTest, EachContextOfTheApplicationIsServedUntilTheUserSelectsSomethingElse) {
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
    selection_.windowActivated(korean); // the application runs a second time
    selection_.select("pinyin");
    enter(korean);
    EXPECT_EQ(has(korean), "pinyin");
}

TEST_F(ContextSelectionTest, WhatTheUserSelectsInATerminalIsSeenWhenSomethingHintsAtIt) {
    visit(terminal, "keyboard-ru");
    set("hangul");
    pass(1s);
    selection_.mayHaveChanged();
    pass(1s);
    EXPECT_EQ(selection_.current(), "hangul");
    EXPECT_EQ(has(terminal), "hangul");
}

TEST_F(ContextSelectionTest, OthersContextsAreLeftAlone) {
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
    selection_.select("pinyin");
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

TEST_F(ContextSelectionTest, OnlyWhatChangesSomethingIsSelected) {
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
    visit(cyrillic, "keyboard-ru", 1);
    EXPECT_EQ(has(cyrillic, 1), "keyboard-ru");
    EXPECT_EQ(selections(), 0);
    activate(latin, "");
    EXPECT_EQ(selection_.nextLook(), 8ms) << "the daemon is busy with giving it what it has";
}

TEST_F(ContextSelectionTest, WhoHadTheFocusFirstIsNotToldOf) {
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

TEST_F(ContextSelectionTest, GivesUpInTime) {
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
}

TEST_F(ContextSelectionTest, AContextThatLosesTheFocusAtOnceHasItsOwnNevertheless) {
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

TEST_F(ContextSelectionTest, TheLastApplicationGetsItsOwnHoweverQuicklyTheyFollow) {
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
        news_ = 0;
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

TEST(SharedContext, HasWhatWasLastWishedForElseWhatTheDaemonSays) {
    // In the order in which it goes: `=` wishes, answered with `+` or `-`; `~` is told, with nothing if there
    // is no engine; `l`ooks that often; `g`ives up. It has `us` at first.
    const struct {
        const char *events, *calls, *current;
        State state;
    } cases[] = {
        {"", "", "us", State::free},
        {"=us", "", "us", State::reached},
        {"=ru", "ru", "ru", State::sending},
        {"=ru ~ru +", "ru", "ru", State::reached},
        {"=ru + ~ru", "ru", "ru", State::reached},
        {"=ru =pinyin =hangul =de ~ru + ~de +", "ru de", "de", State::reached},
        {"=ru =us + ~ru ~us +", "ru us", "us", State::reached}, // It may have got `ru` meanwhile.
        {"~ru ~de", "", "de", State::free},
        {"=de ~us +", "de", "de", State::missed}, // From before the call.
        {"=de ~de + ~us", "de", "us", State::free},
        {"=de ~de + ~us =de ~de + ~us", "de de", "us", State::free}, // Answered once each time.
        {"=gone - l10", "gone ? ? ? ? ? ? ? ? ? gone!", "us", State::free},
        {"=de + l10 + l10 ~de", "de ? ? ? ? ? ? ? ? ? de ? ? ? ? ? ? ? ? ? de", "de", State::reached},
        {"~", "us", "us", State::sending}, // Its process has died.
        {"=ru ~ru + ~", "ru ru", "ru", State::sending},
        {"=ru g ~us +", "ru", "us", State::free},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.events);
        std::vector<std::string> calls;
        ContextSelection selection{
            {.select = [&](const auto& engine) { calls.push_back(engine); },
             .look = [&] { calls.emplace_back("?"); },
             .refused = [&](const auto& engine) { calls.push_back(std::string(engine).append("!")); }}};
        const auto tell = [&](const std::string& engine) {
            selection.told({"all", ContextSelection::anyProcess}, engine);
        };
        tell("us");
        std::istringstream events(expected.events);
        for (std::string event; events >> event;) {
            const auto engine = event.substr(1);
            if (event[0] == '=') selection.select(engine);
            if (event[0] == '~') tell(engine);
            if (event == "+" || event == "-") selection.answered(event == "+");
            for (int looks = event[0] == 'l' ? std::stoi(engine) : 0; looks > 0; --looks)
                selection.lookAgain();
            if (event == "g") selection.giveUp();
        }
        std::istringstream wanted(expected.calls);
        EXPECT_EQ(calls, std::vector(std::istream_iterator<std::string>(wanted), {}));
        EXPECT_EQ(selection.current().value_or("none"), expected.current);
        EXPECT_EQ(selection.state(), expected.state);
    }
}

} // namespace
} // namespace quorvane
