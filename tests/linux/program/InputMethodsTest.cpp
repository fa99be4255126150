// What a person types into real programs, through real input method daemons.

#include <array>
#include <functional>

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "linux/support/Keyboard.h"
#include "linux/support/TestWindow.h"
#include "virtual-desktop/InputMethodSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using Toolkit = TextProgram::Toolkit;

// Milliseconds.
constexpr qint64 longestAnswer = 300;
constexpr qint64 longestLaunch = 1000; // Of which Fcitx5's clients take a tenth to introduce themselves.
constexpr qint64 longestReturn = 2000;

class InputMethods : public testing::TestWithParam<const char*>, public InputMethodSession {
protected:
    InputMethods() : InputMethodSession(GetParam()) {
        setRule("Latin", "xkb:us");
        setRule("Cyrillic", "xkb:ru");
        TextProgram chinese(*this, Toolkit::qt, wmClass(Toolkit::qt, pinyin));
        EXPECT_TRUE(getsBack(chinese, pinyin)); // Daemons are slow when a method is used for the first time.
        pauseLikeAPerson();
    }

    /// Switches between programs that input methods do not concern, however the daemon is.
    void expectQuickSwitchesOfLayouts() {
        for (unsigned change = 0; change < 10; ++change) {
            QElapsedTimer time;
            time.start();
            user.activate(change % 2 ? cyrillic_.window() : latin_.window());
            EXPECT_TRUE(waitForGroup(change % 2));
            EXPECT_LT(time.elapsed(), longestAnswer);
        }
    }

    /// The user goes to another program and back until the program has its source: when a daemon comes or
    /// answers again, what is in front keeps what it has.
    bool getsBack(TextProgram& opened, Source source) {
        return waitUntil([&] {
            expectQuickSwitchesOfLayouts();
            if (!opened.activate()) return false;
            QElapsedTimer age;
            age.start();
            return waitUntil([&] { return isSelected(source) || age.elapsed() > 500; }) && isSelected(source);
        });
    }

private:
    TestWindow latin_{{"class=Latin"}}, cyrillic_{{"class=Cyrillic"}};
};

std::string nameOf(const testing::TestParamInfo<const char*>& instance) {
    return instance.param;
}
INSTANTIATE_TEST_SUITE_P(Program, InputMethods, testing::Values("ibus", "fcitx"), nameOf);

TEST_P(InputMethods, WhatIsTypedIsThatOfTheProgramInFront) {
    std::array<std::optional<TextProgram>, 12> running;
    for (int round = 0; round < 2; ++round) {
        for (std::size_t number = 0; number < running.size(); ++number) {
            const auto toolkit = Toolkit(number % 3);
            if (!running[number] || toolkit == Toolkit::gtk)
                running[number].emplace(*this, toolkit, wmClass(toolkit, sources[number % 4]));
        }
        pauseLikeAPerson(); // Programs that have just opened may report a focus that is over.
        for (std::size_t number = 0; number < running.size(); ++number) {
            const auto source = sources[number % 4];
            ASSERT_TRUE(running[number]->activate() && waitForSource(source)) << number;
            EXPECT_TRUE(typeInto(*running[number], source))
                << number << running[number]->typed().toStdString();
        }
    }
}

TEST_P(InputMethods, ALaunchedProgramGetsItsOwnAtItsFirstKey) {
    const bool isOneForAll = GetParam() == std::string("ibus"); // Also before the program has a context.
    for (const auto front : {us, pinyin}) {
        const auto source = front == us ? pinyin : us;
        TextProgram before(*this, Toolkit::xim, wmClass(Toolkit::xim, front));
        for (int time = 0; time < 5; ++time) {
            ASSERT_TRUE(before.activate() && waitForSource(front));
            pauseLikeAPerson();
            const auto context = focusedContext();
            TextProgram launched(*this, Toolkit::qt, wmClass(Toolkit::qt, source));
            ASSERT_TRUE(launched.waitUntilShown());
            ASSERT_TRUE(!isOneForAll || waitForContextAfter(context));
            QElapsedTimer age;
            age.start();
            ASSERT_TRUE(waitForSource(source));
            EXPECT_LT(age.elapsed(), longestLaunch);
            EXPECT_TRUE(typeInto(launched, source)) << launched.typed().toStdString();
        }
    }
}

TEST_P(InputMethods, WhatTheUserSelectsStaysUntilAnotherProgramIsActivated) {
    TextProgram latin(*this, Toolkit::qt, wmClass(Toolkit::qt, us));
    TextProgram cyrillic(*this, Toolkit::qt, wmClass(Toolkit::qt, ru));
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(cyrillic.activate() && waitForSource(ru));
        pauseLikeAPerson();
        ASSERT_TRUE(latin.activate() && waitForSource(us)) << time;
        pauseLikeAPerson();
        selectByHand(pinyin);
        ASSERT_TRUE(waitForSource(pinyin));
        for (int word = 0; word < 2; ++word) {
            type({control}); // as somebody who switches presses it
            EXPECT_TRUE(typeInto(latin, pinyin)) << latin.typed().toStdString();
        }
        EXPECT_TRUE(isSelected(pinyin));
    }
}

TEST_P(InputMethods, ADaemonThatHangsOrDiesStopsNothing) {
    const std::function<void()> start = [this] { onDaemon([](auto& each) { each.start(); }); };
    const auto end = [this] { onDaemon([](auto& each) { each.end(); }); };
    const auto kill = [this] { onDaemon([](auto& each) { each.kill(); }); };
    const auto stop = [this] { onDaemon([](auto& each) { each.stop(); }); };
    const auto resume = [this] { onDaemon([](auto& each) { each.resume(); }); };
    const struct {
        const char* what;
        std::function<void()> happens, isOver;
    } faults[] = {
        {"it is killed", kill, start},
        {"it ends", end, start},
        {"it hangs", stop, resume},
        {"it is killed as it hangs", [&] { (stop(), expectQuickSwitchesOfLayouts(), kill()); }, start},
        {"another one takes its place", [] {}, start}};
    TextProgram chinese(*this, Toolkit::qt, wmClass(Toolkit::qt, pinyin));
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.what);
        ASSERT_TRUE(chinese.activate() && waitForSource(pinyin));
        fault.happens();
        expectQuickSwitchesOfLayouts();
        ASSERT_TRUE(chinese.activate());
        fault.isOver();
        QElapsedTimer age;
        age.start();
        EXPECT_TRUE(waitForSource(pinyin));
        EXPECT_LT(age.elapsed(), longestReturn);
        pauseLikeAPerson(); // Its client of IBus finds the new one only then.
        EXPECT_TRUE(typeInto(chinese, pinyin)) << chinese.typed().toStdString();
        TextProgram korean(*this, Toolkit::qt, wmClass(Toolkit::qt, hangul));
        ASSERT_TRUE(korean.activate() && waitForSource(hangul));
        EXPECT_TRUE(typeInto(korean, hangul)) << korean.typed().toStdString();
    }
}

TEST_P(InputMethods, AnotherFrameworkMayTakeTheDaemonsPlaceAndTheSessionBusMayEnd) {
    use(GetParam() == std::string("ibus") ? "fcitx" : "ibus");
    {
        TextProgram chinese(*this, Toolkit::qt, wmClass(Toolkit::qt, pinyin));
        EXPECT_TRUE(getsBack(chinese, pinyin));
        pauseLikeAPerson();
        EXPECT_TRUE(typeInto(chinese, pinyin)) << chinese.typed().toStdString();
    }
    bus.end();
    onDaemon([](auto& each) { each.end(); }); // of which nobody tells
    expectQuickSwitchesOfLayouts();
    TextProgram cyrillic(*this, Toolkit::xim, wmClass(Toolkit::xim, ru));
    ASSERT_TRUE(cyrillic.activate() && waitForGroup(1));
    EXPECT_TRUE(typeInto(cyrillic, ru)) << cyrillic.typed().toStdString();
}

TEST(InputMethodEngine, ThatDiedRunsAgainAtTheNextActivation) {
    InputMethodSession session("ibus");
    using enum InputMethodSession::Source;
    TextProgram before(session, Toolkit::qt, session.wmClass(Toolkit::qt, pinyin));
    ASSERT_TRUE(before.activate() && session.waitForSource(pinyin));
    ASSERT_TRUE(std::get<IBusDaemon>(session.daemon).killEngine("libpinyin"));
    TextProgram next(session, Toolkit::xim, session.wmClass(Toolkit::xim, pinyin));
    ASSERT_TRUE(next.activate() && session.waitForSource(pinyin));
    EXPECT_TRUE(session.typeInto(next, pinyin)) << next.typed().toStdString();
}

class SharedState : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Program, SharedState, testing::Values("All", "Program"), nameOf);

TEST_P(SharedState, ChangesNothingAtTheFirstKey) {
    InputMethodSession session("fcitx", GetParam());
    for (const auto source : {session.us, session.ru, session.us}) {
        TextProgram launched(session, Toolkit::qt, session.wmClass(Toolkit::qt, source));
        ASSERT_TRUE(launched.waitUntilShown() && session.waitForSource(source));
        EXPECT_TRUE(session.typeInto(launched, source)) << launched.typed().toStdString();
    }
}

} // namespace
} // namespace quorvane
