// The whole program among real programs, in each Wayland session.

#include <chrono>
#include <list>

#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/support/Groups.h"
#include "settings/Keys.h"
#include "virtual-desktop/Fcitx5Daemon.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandProgramSession.h"
#include "virtual-desktop/WaylandTextProgram.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {
namespace {

using testing::HasSubstr;
using Toolkit = TextCommand::Toolkit;

class WaylandProgram : public testing::TestWithParam<std::string> {
protected:
    WaylandProgram() {
        // Left by a session that has ended.
        if (GetParam() != "sway") qputenv("SWAYSOCK", session_.folders.home().toUtf8() + "/left");
    }
    ~WaylandProgram() override { qunsetenv("SWAYSOCK"); }

    static constexpr std::uint8_t g = 42, j = 44, control = 37, option = 64;

    static std::string tool(const QStringList& arguments) {
        QProcess process;
        process.start(QUORVANECTL, arguments);
        EXPECT_TRUE(process.waitForFinished());
        return (process.readAllStandardOutput() + process.readAllStandardError()).toStdString();
    }
    /// Ctrl+Alt+J for German, as soon as the layouts are known.
    static void giveHotKey() {
        EXPECT_TRUE(waitUntil([] { return tool({"shortcut", "xkb:de", "Ctrl+Alt+J"}) == "Ctrl+Alt+J\n"; }));
    }
    bool waitForLayout(unsigned layout) {
        return waitUntil([&] { return server_.layout() == layout; });
    }

    WaylandProgramSession session_{GetParam()};
    WaylandServer& server_ = *session_.server;
};

INSTANTIATE_TEST_SUITE_P(Of, WaylandProgram, testing::Values("sway", "kwin", "gnome"),
                         [](const auto& each) { return each.param; });

TEST_P(WaylandProgram, GivesEveryProgramItsLayoutAndWhatIsTypedArrives) {
    session_.startProgram();
    // foot divides by zero on KWin without a screen, which tells no rate at which it is refreshed.
    const auto second = GetParam() == "kwin" ? Toolkit::qt : Toolkit::foot;
    // GNOME Shell sees that it is xterm, whatever it calls itself, and KWin tells classes in small letters.
    const auto* const third = GetParam() == "gnome"  ? "debian-xterm"
                              : GetParam() == "kwin" ? "third"
                                                     : "Third";
    const struct {
        Toolkit toolkit;
        const char* name;
        const char* id;
        unsigned layout;
        const char* letter;
    } programs[] = {{Toolkit::qt, "first", "first", ru, "п"},
                    {second, "second", "second", us, "g"},
                    {Toolkit::xim, "Third", third, ru, "п"},
                    {Toolkit::qt, "fourth", "fourth", us, "g"}};
    std::list<WaylandTextProgram> running;
    for (const auto& each : programs) {
        session_.setRule(each.id, each.layout == ru ? "xkb:ru" : "xkb:us");
        auto& program = running.emplace_back(server_, each.toolkit, each.name);
        EXPECT_TRUE(waitForLayout(each.layout)) << each.name << ", just opened\n" << tool({"status"});
        EXPECT_EQ(program.typed(), "");
    }
    const auto times = session_.switchTimes();
    constexpr int rounds = 3;
    for (int round = 1; round <= rounds; ++round) {
        auto program = running.begin();
        for (const auto& each : programs) {
            ASSERT_TRUE(program->activate());
            ASSERT_TRUE(waitForLayout(each.layout)) << each.name << ' ' << round;
            pauseLikeAPerson(); // The layout may be there before the window has the keys.
            server_.type({g});
            EXPECT_TRUE(waitUntil([&] { return program->typed() == QString(each.letter).repeated(round); }))
                << each.name << ' ' << round << ' ' << program->typed().toStdString();
            ++program;
        }
    }
    EXPECT_EQ(session_.switchTimes() - times, 4 * rounds) << tool({"status"});
    EXPECT_THAT(tool({"status"}), HasSubstr("by its rule"));
}

TEST_P(WaylandProgram, AHotKeySelectsItsSourceInEveryLayout) {
    session_.startProgram();
    const WaylandWindow window("window");
    ASSERT_TRUE(server_.activate("window"));
    giveHotKey();
    for (const auto layout : {us, ru}) {
        server_.selectLayout(layout);
        ASSERT_TRUE(waitForLayout(layout));
        EXPECT_TRUE(waitUntil([&] {
            server_.pressTogether({control, option, j});
            return server_.layout() == de;
        })) << layout;
    }
}

TEST_P(WaylandProgram, ItsWindowIsNativeAndOneHoweverOftenItIsLaunched) {
    session_.startProgram();
    for (int launch = 0; launch < 2; ++launch) {
        RunningProgram another(QUORVANE_PROGRAM);
        ASSERT_TRUE(another.waitForEnd());
        EXPECT_EQ(another.exitCode(), 0);
        EXPECT_TRUE(waitUntil([&] { return server_.isInFront("Quorvane"); }));
    }
    EXPECT_TRUE(session_.program->isRunning());
    EXPECT_EQ(session_.program->errors().count("no system tray"), 1);
}

TEST_P(WaylandProgram, TheIndicatorStandsInTheCornerOfTheFrontWindowAndTakesNoFocus) {
    auto& standard = session_.stores.standardUserDefaults();
    standard.setBool(true, key::enableTipOfState);
    standard.setBool(true, key::followWindow);
    standard.synchronize();
    session_.startProgram();
    const WaylandWindow window("black"), other("other"); // So it is.
    const auto file = session_.folders.home() + "/screen.png";
    std::vector places{QRect(100, 200, 400, 300), QRect(500, 100, 400, 300)};
    if (GetParam() == "sway") { // Which can have another screen, to the right of the first and lower.
        SwayServer::run("create_output");
        SwayServer::run("output HEADLESS-1 pos 0 0");
        SwayServer::run("output HEADLESS-2 pos 1280 100");
        places.emplace_back(1200, 680, 400, 100);
        places.push_back(places.front());
    }
    for (const auto& place : places) {
        EXPECT_TRUE(waitUntil([&] {
            server_.move("black", place);
            if (server_.place("black") != place) return false;
            // sway tells of a window that was moved when something else happens.
            server_.activate("other");
            server_.activate("black");
            server_.saveScreenshot(file);
            const QImage screen(file);
            // A light box in the window's corner, and nothing in the middle.
            const auto corner = screen.pixelColor(place.topRight() + QPoint(-10, 4));
            return corner.lightness() > 128 && screen.pixelColor(place.center()) == Qt::black;
        })) << place.x();
        EXPECT_TRUE(server_.isInFront("black"));
    }
}

TEST_P(WaylandProgram, WhileTheCompositorHangsItAnswersAndAfterwardsItSwitches) {
    session_.startProgram();
    session_.setRule("first", "xkb:ru");
    const WaylandWindow first("first", "first"), second("second", "second");
    ASSERT_TRUE(server_.activate("second"));
    server_.stop();
    QElapsedTimer time;
    time.start();
    EXPECT_THAT(tool({"status"}), HasSubstr("in front\tsecond"));
    tool({"select", "xkb:de"});
    const auto waited = time.elapsed(); // milliseconds
    server_.resume();
    EXPECT_LT(waited, 1000);
    ASSERT_TRUE(server_.activate("first"));
    EXPECT_TRUE(waitForLayout(ru));
}

/// On GNOME the session ends with the shell, a dialogue asks before a window has the shortcuts, and windows
/// come to the front without a token, too.
class WaylandProgramAndCompositor : public WaylandProgram {};

INSTANTIATE_TEST_SUITE_P(Of, WaylandProgramAndCompositor, testing::Values("sway", "kwin"),
                         [](const auto& each) { return each.param; });

TEST_P(WaylandProgramAndCompositor, ComeBackTogether) {
    session_.startProgram();
    session_.setRule("first", "xkb:ru");
    server_.kill();
    server_.restart();
    // Who is in front when it begins is no news to it.
    ASSERT_TRUE(waitUntil([&] { return tool({"status"}).find("current\tEnglish") != std::string::npos; }));
    const WaylandWindow first("first", "first");
    ASSERT_TRUE(server_.activate("first"));
    EXPECT_TRUE(waitForLayout(ru)) << session_.program->errors().toStdString();
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
}

TEST_P(WaylandProgramAndCompositor, LiveOnWithoutTheSessionBus) {
    session_.startProgram();
    session_.setRule("first", "xkb:ru");
    const WaylandWindow first("first"), second("second");
    if (GetParam() == "sway") {
        ASSERT_TRUE(server_.activate("second"));
        server_.bus().end();
        ASSERT_TRUE(server_.activate("first"));
        EXPECT_TRUE(waitForLayout(ru)) << session_.program->errors().toStdString();
    } else { // KWin and the program speak to each other by it only.
        server_.bus().end();
        session_.setRule("second", "xkb:de"); // It takes its settings from files as before.
    }
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
}

TEST_P(WaylandProgramAndCompositor, BringItsOpenWindowToTheFrontForALaunchWithAToken) {
    if (GetParam() == "sway") SwayServer::run("focus_on_window_activation focus");
    session_.program.emplace(QUORVANE_PROGRAM, QStringList{"--preferences"});
    ASSERT_TRUE(waitUntil([&] { return server_.isInFront("Quorvane"); }));
    WaylandWindow launcher("launcher");
    ASSERT_TRUE(server_.activate("launcher"));
    constexpr std::uint8_t f1 = 67;
    server_.type({f1});
    ASSERT_TRUE(waitUntil([&] { return !launcher.activationToken().isEmpty(); }));
    for (const bool hasToken : {false, true}) {
        if (hasToken) qputenv("XDG_ACTIVATION_TOKEN", launcher.activationToken().toUtf8());
        EXPECT_TRUE(RunningProgram(QUORVANE_PROGRAM).waitForEnd());
        tool({"status"}); // It has done what it was asked for before.
        EXPECT_TRUE(waitUntil([&] { return server_.isInFront(hasToken ? "Quorvane" : "launcher"); }))
            << hasToken << server_.namesInFront().join(' ').toStdString();
    }
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_P(WaylandProgramAndCompositor, LetWhoRecordsAHotKeyHaveTheShortcutsOfOthers) {
    session_.startProgram();
    giveHotKey();
    const WaylandWindow window("window");
    const auto isOurs = [&] {
        server_.selectLayout(us);
        return waitForLayout(us) && waitUntil([&] {
                   server_.pressTogether({control, option, j});
                   return server_.layout() == de;
               });
    };
    ASSERT_TRUE(server_.activate("window"));
    ASSERT_TRUE(isOurs());
    server_.selectLayout(us);
    {
        qputenv("QT_QPA_PLATFORM", "wayland");
        RunningProgram recorder(QUORVANE_RECORDING_WINDOW);
        qunsetenv("QT_QPA_PLATFORM");
        ASSERT_TRUE(waitUntil([&] { return recorder.output().contains("shown"); }));
        ASSERT_TRUE(server_.activate("recorder"));
        ASSERT_TRUE(waitForLayout(us));
        server_.pressTogether({control, option, j});
        EXPECT_TRUE(waitUntil([&] { return recorder.output().contains(QString("\n%1\n").arg(j)); }))
            << recorder.output().toStdString();
        EXPECT_EQ(server_.layout(), us);
        EXPECT_TRUE(isOurs()) << "once it is recorded";
    }
}

/// With a daemon for input methods beside the compositor, which has the layouts.
class WaylandInputMethods : public WaylandProgram {
protected:
    /// `selected` is what the daemon has selected.
    void typeIntoTwo(const char* framework, const std::string& pinyin, const std::string& engine,
                     const std::function<QString()>& selected) {
        constexpr std::uint8_t n = 57, i = 31, space = 65;
        qputenv("QT_IM_MODULE", framework);
        session_.startProgram();
        session_.setRule("latin", "xkb:us");
        session_.setRule("chinese", pinyin);
        WaylandTextProgram latin(server_, Toolkit::qt, "latin"), chinese(server_, Toolkit::qt, "chinese");
        for (int round = 1; round <= 2; ++round) {
            for (auto* program : {&latin, &chinese}) {
                const bool isChinese = program == &chinese;
                ASSERT_TRUE(program->activate());
                EXPECT_TRUE(waitUntil([&] { return (selected() == engine.c_str()) == isChinese; }))
                    << selected().toStdString() << tool({"status"});
                for (const auto key : {n, i, space}) {
                    pauseLikeAPerson();
                    server_.type({key});
                }
                const auto wanted = QString(isChinese ? "你" : "ni").repeated(round);
                EXPECT_TRUE(waitUntil([&] { return program->typed() == wanted; }))
                    << framework << ' ' << round << ' ' << program->typed().toStdString();
            }
        }
        qunsetenv("QT_IM_MODULE");
    }
};

INSTANTIATE_TEST_SUITE_P(Of, WaylandInputMethods, testing::Values("sway", "kwin"),
                         [](const auto& each) { return each.param; });

TEST_P(WaylandInputMethods, OfFcitx5FollowTheProgramInFront) {
    Fcitx5Daemon daemon({});
    daemon.start();
    typeIntoTwo("fcitx", "fcitx:pinyin", "pinyin", [&] { return daemon.inputMethod(); });
}

TEST_P(WaylandInputMethods, OfIBusFollowTheProgramInFront) {
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    qputenv("GSETTINGS_BACKEND", "keyfile"); // The bus starts no service that would keep them.
    IBusDaemon::setPreloadEngines({"xkb:us::eng", "libpinyin"});
    IBusDaemon daemon;
    daemon.start();
    typeIntoTwo("ibus", "ibus:libpinyin", "libpinyin", [&] { return daemon.globalEngine(); });
    qunsetenv("GSETTINGS_BACKEND");
}

TEST_P(WaylandProgram, LeavesNothingBehindWhenItEnds) {
    session_.startProgram();
    giveHotKey();
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
    WaylandWindow window("window");
    ASSERT_TRUE(server_.activate("window"));
    server_.selectLayout(us);
    ASSERT_TRUE(waitForLayout(us));
    server_.pressTogether({control, option, j});
    server_.type({g});
    EXPECT_TRUE(waitUntil([&] { return window.typed().endsWith("g"); }));
    EXPECT_EQ(server_.layout(), us);
}

} // namespace
} // namespace quorvane
