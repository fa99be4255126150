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
    EXPECT_THAT(contexts, Optional(testing::ElementsAre(Fcitx5Context{"aa", "my program", true},
                                                        Fcitx5Context{"bb", "", false},
                                                        Fcitx5Context{"cc", "", false})));
    EXPECT_THAT(contextsInDebugInfo("Input Context without group"), Optional(testing::IsEmpty()));
    for (const auto* text : {"", "something else", "InputContext\n IC [aa focus:1",
                             "InputContext\n IC [a] focus:", "InputContext\n IC [aa] program:x focus:yes",
                             "InputContext\n IC ] focus:1 ["})
        EXPECT_EQ(contextsInDebugInfo(text), std::nullopt) << text;
}

/// Fcitx5 and programs that use it, on a clock that is moved by hand. An answer takes 0.3 ms.
class Fcitx5SelectionTest : public testing::Test {
protected:
    using Time = Fcitx5Selection::Time;

    void at(microseconds delay, std::function<void()> event) {
        events_.emplace(now_ + delay, std::move(event));
    }

    void run(microseconds duration) {
        const auto end = now_ + duration;
        for (;;) {
            const auto due = selection_.nextDue();
            const bool isEvent = !events_.empty() && (!due || events_.begin()->first <= *due);
            const auto next = isEvent ? events_.begin()->first : due.value_or(Time::max());
            if (next > end) break;
            now_ = std::max(now_, next);
            if (isEvent)
                events_.extract(events_.begin()).mapped()();
            else
                selection_.timePassed(now_);
        }
        now_ = end;
    }

    void focus(const std::string& uuid, const std::string& program = {}) {
        inputMethods_.try_emplace(uuid, "us");
        for (auto& context : contexts_)
            context.hasFocus = context.uuid == uuid;
        if (!std::ranges::count(contexts_, uuid, &Fcitx5Context::uuid))
            contexts_.push_back({uuid, program.empty() ? uuid : program, true});
        last_ = uuid;
    }
    void unfocus() {
        for (auto& context : contexts_)
            context.hasFocus = false;
    }
    void activate(const std::string& wish = {}) {
        selection_.activated(now_);
        EXPECT_EQ(selection_.current(), std::nullopt);
        if (!wish.empty()) selection_.select(wish, now_);
    }
    /// A and B run, and A is in front.
    void openTwo() {
        focus("B");
        focus("A");
        activate();
        run(1s);
        inputMethods_ = {{"A", "a's"}, {"B", "b's"}};
        selection_.mayHaveChanged();
        run(1s);
        EXPECT_EQ(selection_.current(), "a's");
    }
    void byHand(const std::string& inputMethod) {
        inputMethods_[last_] = inputMethod;
        selection_.mayHaveChanged();
    }

    Time now_{1h};
    std::multimap<Time, std::function<void()>> events_;
    std::vector<Fcitx5Context> contexts_;
    std::map<std::string, std::string> inputMethods_; // by uuid
    std::string last_;
    bool isReadable_ = true, hasDefault_ = false;
    int questions_ = 0;
    std::vector<std::string> refused_;
    Fcitx5Selection selection_{
        {.ask =
             [this](unsigned number, const std::string& wish) {
                 ++questions_;
                 at(150us, [this, number, wish] {
                     if (!wish.empty() && wish != "unknown" && !last_.empty()) {
                         for (auto& [uuid, inputMethod] : inputMethods_)
                             if (uuid == last_ || (hasDefault_ && inputMethod != "us")) inputMethod = wish;
                     }
                     Fcitx5Selection::Answer answer{contexts_, last_.empty() ? "" : inputMethods_[last_]};
                     if (!isReadable_) answer.contexts.reset();
                     at(150us, [this, number, answer] { selection_.answered(number, answer, now_); });
                 });
             },
         .refused = [this](const std::string& wish) { refused_.push_back(wish); }}};
};

TEST_F(Fcitx5SelectionTest, ReachesTheApplicationInFrontAndNoOther) {
    // clang-format off
    const struct {
        const char* what;
        microseconds unfocused, focused, told, reached; ///< Since the X server moved the focus.
        const char* program;
    } cases[] = {
        {"focused before it is told", 0us, 100us, 500us, 1200us, "B"},
        {"focused while it is asked", 0us, 700us, 500us, 2500us, "B"},
        {"focused after it is told", 1ms, 3ms, 0us, 6ms, "B"},
        {"told late, a look came between", 0us, 100us, 100ms, 102ms, "B"},
        {"told very late", 0us, 100us, 400ms, 402ms, "B"},
        {"another window of the program", 0us, 100us, 500us, 45ms, "A"},
        {"just opening", 2ms, 300ms, 0us, 312ms, "B"},
        {"opening for long", 2ms, 5s, 0us, 5110ms, "B"},
    };
    // clang-format on
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        contexts_.clear();
        selection_.forget();
        focus("A");
        activate();
        run(1s);
        inputMethods_ = {{"A", "a's"}};
        at(each.unfocused, [this] { unfocus(); });
        at(each.focused, [&] { focus("B", each.program); });
        if (each.told > 50ms) at(50ms, [this] { selection_.mayHaveChanged(); });
        at(each.told, [this] { activate("ru"); });
        run(each.reached);
        EXPECT_EQ(inputMethods_["B"], "ru");
        run(20s);
        EXPECT_EQ(inputMethods_, (std::map<std::string, std::string>{{"A", "a's"}, {"B", "ru"}}));
        EXPECT_EQ(selection_.current(), "ru");
        EXPECT_EQ(selection_.nextDue(), std::nullopt);
    }
}

TEST_F(Fcitx5SelectionTest, AContextThatNeverComesIsNotWaitedForForEver) {
    openTwo();
    unfocus();
    activate("ru");
    run(20s);
    EXPECT_TRUE(selection_.isWithoutContext());
    EXPECT_EQ(selection_.nextDue(), std::nullopt);
    EXPECT_LT(questions_, 300);
    EXPECT_EQ(selection_.current(), "ru");
    EXPECT_EQ(inputMethods_["A"], "a's");
    focus("C"); // only now it has a field for text
    selection_.mayHaveChanged();
    run(1s);
    EXPECT_EQ(inputMethods_["C"], "ru");
    for (const std::string wish : {"pinyin", ""}) {
        unfocus();
        activate("ru");
        run(1s);
        focus("A");
        run(20ms); // It seemed to be the one that was waited for.
        activate(wish);
        run(1s);
        EXPECT_EQ(inputMethods_["A"], "pinyin");
    }
}

TEST_F(Fcitx5SelectionTest, AContextThatWasTakenForAnotherApplicationsIsNotLost) {
    openTwo();
    selection_.forget();
    activate("ru"); // B's, but A keeps the focus for long
    at(100ms, [this] { unfocus(); });
    run(2s);
    activate("pinyin");
    at(2ms, [this] { focus("A"); });
    run(50ms);
    EXPECT_EQ(inputMethods_["A"], "pinyin");
}

TEST_F(Fcitx5SelectionTest, AProgramMayPutTheFocusIntoAnotherContextOfItsOwn) {
    openTwo();
    unfocus();
    activate("ru");
    at(100ms, [this] { focus("splash", "C"); });
    at(400ms, [this] { focus("window", "C"); });
    at(1500ms, [this] { focus("A"); });
    run(3s);
    EXPECT_EQ(inputMethods_["splash"], "ru");
    EXPECT_EQ(inputMethods_["window"], "ru");
    EXPECT_EQ(inputMethods_["A"], "a's");
}

TEST_F(Fcitx5SelectionTest, TheUserHasTheLastWord) {
    openTwo();
    focus("B");
    activate("ru");
    at(50ms, [this] { byHand("pinyin"); });
    run(5s);
    EXPECT_EQ(inputMethods_["B"], "pinyin");
    EXPECT_EQ(selection_.current(), "pinyin");
    selection_.select("us", now_); // a hot key
    run(2ms);
    EXPECT_EQ(inputMethods_["B"], "us");
    unfocus(); // a program without contexts is in front
    selection_.select("ru", now_);
    run(10ms);
    EXPECT_EQ(inputMethods_["B"], "us");
    at(1ms, [this] { activate(); }); // too late for the hot key
    focus("A");
    run(5s);
    EXPECT_EQ(inputMethods_["A"], "a's");
    EXPECT_EQ(selection_.current(), "a's");
}

TEST_F(Fcitx5SelectionTest, WhatASelectionChangesInOtherContextsIsPutBack) {
    for (const bool isShared : {false, true}) {
        inputMethods_.clear();
        contexts_.clear();
        selection_.forget();
        selection_.setShared(isShared);
        hasDefault_ = false;
        openTwo();
        hasDefault_ = true;
        focus("B");
        activate("ru");
        run(1s);
        EXPECT_EQ(inputMethods_["A"], "ru") << "as Fcitx5 does";
        focus("A");
        selection_.mayHaveChanged();
        run(1ms);
        activate();
        run(1s);
        EXPECT_EQ(inputMethods_["A"], isShared ? "ru" : "a's");
    }
}

TEST_F(Fcitx5SelectionTest, WhatIsRefusedIsGivenUp) {
    openTwo();
    focus("B");
    activate("unknown");
    run(5s);
    EXPECT_THAT(refused_, testing::ElementsAre("unknown"));
    EXPECT_EQ(selection_.current(), "b's");
    EXPECT_EQ(selection_.nextDue(), std::nullopt);
}

TEST_F(Fcitx5SelectionTest, ContextsThatCannotBeReadAreSelectedForBlindly) {
    openTwo();
    isReadable_ = false;
    questions_ = 0;
    activate("ru");
    at(200ms, [this] { focus("C"); });
    run(5s);
    EXPECT_EQ(inputMethods_["C"], "ru");
    EXPECT_EQ(selection_.current(), "ru");
    EXPECT_EQ(questions_, 2 * 4) << "a look and a selection each time";
    activate();
    byHand("pinyin");
    run(5s);
    EXPECT_EQ(selection_.current(), "pinyin");
    EXPECT_EQ(selection_.nextDue(), std::nullopt);
}

TEST_F(Fcitx5SelectionTest, StormsEndRight) {
    std::mt19937 random(1);
    const auto upTo = [&](int milliseconds) {
        return microseconds(random() % unsigned(milliseconds * 1000 + 1));
    };
    openTwo();
    focus("C");
    for (int storm = 0; storm < 2000; ++storm) {
        microseconds time{};
        std::string front;
        for (int change = 0; change < 8; ++change) {
            std::string next = {"ABC"[random() % 3]};
            if (next == front) continue;
            front = next;
            time += upTo(storm % 2 ? 20 : 3);
            at(time + upTo(2), [this, next] { focus(next); });
            // The focus of programs may overtake each other's, but the last one's is the last.
            at(time + upTo(2), [this, next] { activate(next == "C" ? "" : next + " wish"); });
            time += 2ms;
        }
        run(3s);
        ASSERT_EQ(last_, front);
        ASSERT_EQ(inputMethods_[front], front == "C" ? "us" : front + " wish") << storm;
        ASSERT_EQ(selection_.current(), inputMethods_[front]) << storm;
    }
}

} // namespace
} // namespace quorvane
