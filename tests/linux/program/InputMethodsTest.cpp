// What a person types into real programs, through real input method daemons.

#include <array>
#include <functional>

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "linux/program/InputMethodSession.h"
#include "linux/support/TestWindow.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using Toolkit = TextProgram::Toolkit;

class InputMethods : public testing::TestWithParam<const char*>, public InputMethodSession {
protected:
    InputMethods() : InputMethodSession(GetParam()) {}

    /// Switches between programs that input methods do not concern. Returns how long the longest switch took,
    /// in milliseconds.
    qint64 longestSwitchOfLayouts() {
        if (!latin_) {
            setRule("Latin", "xkb:us");
            setRule("Cyrillic", "xkb:ru");
            latin_.emplace(QStringList{"class=Latin"});
            cyrillic_.emplace(QStringList{"class=Cyrillic"});
        }
        qint64 longest = 0;
        QElapsedTimer time;
        for (unsigned change = 0; change < 10; ++change) {
            time.start();
            user.activate(change % 2 ? cyrillic_->window() : latin_->window());
            EXPECT_TRUE(waitForGroup(change % 2));
            longest = std::max(longest, time.elapsed());
        }
        return longest;
    }

    /// Fcitx5 tells nobody of the focus: what comes within a few hundredths of a second cannot be told apart.
    static void pauseLikeAPerson() {
        constexpr qint64 quickestHand = 300; // milliseconds
        QElapsedTimer age;
        age.start();
        waitUntil([&] { return age.elapsed() > quickestHand; });
    }

    /// Daemons are busy when an input method is used for the first time.
    void load() {
        TextProgram chinese(*this, Toolkit::qt, wmClass(Toolkit::qt, pinyin));
        ASSERT_TRUE(getsBack(chinese, pinyin));
        pauseLikeAPerson();
    }

    /// The user goes to another program and back until the program has its source: when a daemon comes or
    /// answers again, what is in front keeps what it has.
    bool getsBack(TextProgram& opened, Source source) {
        return waitUntil([&] {
            longestSwitchOfLayouts();
            if (!opened.activate()) return false;
            QElapsedTimer age;
            age.start();
            return waitUntil([&] { return isSelected(source) || age.elapsed() > 500; }) && isSelected(source);
        });
    }

private:
    std::optional<TestWindow> latin_, cyrillic_;
};
INSTANTIATE_TEST_SUITE_P(Program, InputMethods, testing::Values("ibus", "fcitx"),
                         [](const auto& instance) { return std::string(instance.param); });

// Milliseconds.
constexpr qint64 longestAnswer = 300;
constexpr qint64 longestLaunch = 1000; // Of which Fcitx5's clients take a tenth to introduce themselves.
constexpr qint64 longestReturn = 2000;

TEST_P(InputMethods, WhatIsTypedIsThatOfTheProgramInFront) {
    struct Running {
        Toolkit toolkit;
        Source source;
        QString text;
        std::optional<TextProgram> program;
    };
    std::array<Running, 12> running;
    for (std::size_t number = 0; number < running.size(); ++number) {
        running[number].toolkit = Toolkit(number % 3);
        running[number].source = sources[number % 4];
    }
    for (int round = 0; round < 2; ++round) {
        for (auto& each : running) {
            if (each.program && each.toolkit != Toolkit::gtk) continue;
            each.text.clear();
            each.program.emplace(*this, each.toolkit, wmClass(each.toolkit, each.source));
        }
        for (auto& each : running) {
            SCOPED_TRACE(wmClass(each.toolkit, each.source).toStdString());
            ASSERT_TRUE(each.program->activate());
            ASSERT_TRUE(waitForSource(each.source));
            typeWith(each.source);
            each.text += textOf(each.source);
            EXPECT_TRUE(each.program->waitForTyped(each.text)) << each.program->typed().toStdString();
        }
    }
}

/// Fcitx5 now and then does not give a new window the focus; how often is measured by a benchmark.
class LaunchedPrograms : public InputMethods {};
INSTANTIATE_TEST_SUITE_P(Program, LaunchedPrograms, testing::Values("ibus"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_P(LaunchedPrograms, GetTheirOwnAtTheirFirstKey) {
    for (const auto front : {us, pinyin}) {
        const auto launched = front == us ? pinyin : us;
        load();
        TextProgram before(*this, Toolkit::xim, wmClass(Toolkit::xim, front));
        for (int time = 0; time < 5; ++time) {
            ASSERT_TRUE(before.activate() && waitForSource(front));
            pauseLikeAPerson();
            const auto launch = launchAndType(launched);
            EXPECT_EQ(launch.typed, textOf(launched)) << time;
            EXPECT_LT(launch.readyAfter, longestLaunch) << time;
        }
    }
}

TEST_P(InputMethods, WhatTheUserSelectsStaysUntilAnotherProgramIsActivated) {
    constexpr std::uint8_t control = 37;
    TextProgram latin(*this, Toolkit::qt, wmClass(Toolkit::qt, us));
    TextProgram cyrillic(*this, Toolkit::qt, wmClass(Toolkit::qt, ru));
    load();
    QString text;
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(cyrillic.activate() && waitForSource(ru));
        ASSERT_TRUE(latin.activate() && waitForSource(us)) << time;
        pauseLikeAPerson();
        selectByHand(pinyin);
        ASSERT_TRUE(waitForSource(pinyin));
        for (int word = 0; word < 2; ++word) {
            type({control}); // as somebody who switches presses it
            typeWith(pinyin);
            text += textOf(pinyin);
            EXPECT_TRUE(latin.waitForTyped(text)) << latin.typed().toStdString();
        }
        EXPECT_TRUE(waitForSource(pinyin));
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
    } faults[] = {{"it is killed", kill, start},
                  {"it ends", end, start},
                  {"it hangs", stop, resume},
                  {"it is killed as it hangs", [&] { (stop(), longestSwitchOfLayouts(), kill()); }, start}};
    TextProgram chinese(*this, Toolkit::qt, wmClass(Toolkit::qt, pinyin));
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.what);
        ASSERT_TRUE(chinese.activate() && waitForSource(pinyin));
        fault.happens();
        EXPECT_LT(longestSwitchOfLayouts(), longestAnswer);
        fault.isOver();
        QElapsedTimer age;
        age.start();
        EXPECT_TRUE(getsBack(chinese, pinyin));
        EXPECT_LT(age.elapsed(), longestReturn);
        pauseLikeAPerson();
        TextProgram korean(*this, Toolkit::qt, wmClass(Toolkit::qt, hangul));
        ASSERT_TRUE(korean.activate() && waitForSource(hangul));
        typeWith(hangul);
        EXPECT_TRUE(korean.waitForTyped(textOf(hangul))) << korean.typed().toStdString();
    }
}

TEST_P(InputMethods, AnotherFrameworkMayTakeTheDaemonsPlaceAndNothingMayTakeThat) {
    EXPECT_EQ(launchAndType(pinyin).typed, textOf(pinyin));
    use(GetParam() == std::string("ibus") ? "fcitx" : "ibus");
    EXPECT_LT(longestSwitchOfLayouts(), longestAnswer);
    EXPECT_EQ(launchAndType(pinyin).typed, textOf(pinyin));
    onDaemon([](auto& each) { each.end(); });
    EXPECT_LT(longestSwitchOfLayouts(), longestAnswer);
    TextProgram cyrillic(*this, Toolkit::xim, wmClass(Toolkit::xim, ru));
    ASSERT_TRUE(cyrillic.activate() && waitForGroup(1));
    typeWith(ru);
    EXPECT_TRUE(cyrillic.waitForTyped(textOf(ru))) << cyrillic.typed().toStdString();
}

TEST(InputMethodEngine, ThatDiedRunsAgainAtTheNextActivation) {
    InputMethodSession session("ibus");
    using enum InputMethodSession::Source;
    TextProgram before(session, Toolkit::qt, session.wmClass(Toolkit::qt, pinyin));
    ASSERT_TRUE(before.activate() && session.waitForSource(pinyin));
    ASSERT_TRUE(std::get<IBusDaemon>(session.daemon).killEngine("libpinyin"));
    TextProgram next(session, Toolkit::xim, session.wmClass(Toolkit::xim, pinyin));
    ASSERT_TRUE(next.activate());
    EXPECT_TRUE(session.waitForSource(pinyin));
    session.typeWith(pinyin);
    EXPECT_TRUE(next.waitForTyped(session.textOf(pinyin))) << next.typed().toStdString();
}

} // namespace
} // namespace quorvane
