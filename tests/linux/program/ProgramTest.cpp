// What users want the program for, on a real desktop.

#include <algorithm>

#include <QFile>
#include <gtest/gtest.h>

#include "linux/program/ProgramSession.h"
#include "linux/support/ShownWindows.h"
#include "linux/support/TestWindow.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr unsigned us = 0;
constexpr unsigned ru = 1;
constexpr unsigned de = 2;

class OnWindowManager : public testing::TestWithParam<const char*> {
protected:
    ProgramSession session_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Program, OnWindowManager, testing::Values("openbox", "xfwm4"),
                         [](const auto& instance) { return std::string(instance.param); });

/// A terminal whose shell writes what is typed into a file, line by line.
class Terminal {
public:
    Terminal(ProgramSession& session, const QString& wmClass)
        : file_(session.folders.home() + "/" + wmClass)
        , xterm_("xterm", {"-u8", "-class", wmClass, "-e", "sh", "-c",
                           ": > " + file_ + "; while read line; do echo $line >> " + file_ + "; done"}) {
        waitUntil([this] { return QFile::exists(file_); }); // What comes before the shell may be lost.
    }

    QString typed() const {
        QFile file(file_);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
    }

private:
    QString file_;
    TestProgram xterm_;
};

xcb_window_t activeWindow(ProgramSession& session) {
    const auto windows = session.user.values(session.user.root(), "_NET_ACTIVE_WINDOW");
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

TEST_P(OnWindowManager, WhatIsTypedIsInTheLayoutOfTheProgramInFront) {
    qputenv("LC_ALL", "C.UTF-8");
    session_.startProgram();
    session_.setRule("Cyrillic", "xkb:ru");
    session_.setRule("German", "xkb:de");
    const auto none = activeWindow(session_);
    const Terminal cyrillic(session_, "Cyrillic");
    ASSERT_TRUE(waitUntil([&] { return activeWindow(session_) != none; }));
    const auto cyrillicWindow = activeWindow(session_);
    const Terminal german(session_, "German");
    ASSERT_TRUE(waitUntil([&] { return activeWindow(session_) != cyrillicWindow; }));
    ASSERT_TRUE(session_.waitForGroup(de));

    constexpr std::uint8_t enter = 36;
    const std::initializer_list<std::uint8_t> keys = {38, 39, 52, 47,
                                                      enter}; // A S Z ; on an American keyboard
    session_.type(keys);
    EXPECT_TRUE(waitUntil([&] { return german.typed() == "asyö"; })) << german.typed().toStdString();
    session_.user.activate(cyrillicWindow);
    ASSERT_TRUE(session_.waitForGroup(ru));
    session_.type(keys);
    EXPECT_TRUE(waitUntil([&] { return cyrillic.typed() == "фыяж"; })) << cyrillic.typed().toStdString();
    EXPECT_EQ(german.typed(), "asyö");
}

TEST_P(OnWindowManager, AStormOfFocusChangesEndsInTheLayoutOfTheProgramInFront) {
    session_.startProgram();
    const TestWindow marker({"class=Marker"});
    const TestWindow first({"class=First"});
    const TestWindow second({"class=Second"});
    session_.setRule("First", "xkb:ru");
    session_.setRule("Second", "xkb:de");
    for (int change = 0; change < 41; ++change)
        session_.user.activate(change % 2 ? first.window() : second.window());
    // A window manager answers in order: with this done, the storm is over. Not every one ends it with the
    // window that was asked for last.
    session_.user.minimise(marker.window());
    ASSERT_TRUE(waitUntil([&] { return !session_.user.values(marker.window(), "_NET_WM_STATE").empty(); }));
    EXPECT_TRUE(waitUntil([&] {
        const auto active = activeWindow(session_);
        const auto group = session_.group();
        return (active == first.window() && group == ru) || (active == second.window() && group == de);
    }));
}

TEST_P(OnWindowManager, TheIndicatorFollowsTheWindowInFront) {
    QProcess::execute("xrandr", {"--setmonitor", "*LEFT", "800/211x900/238+0+0", "screen"});
    QProcess::execute("xrandr", {"--setmonitor", "RIGHT", "800/211x900/238+800+0", "none"});
    for (const auto setting : {key::enableTipOfState, key::followWindow})
        session_.stores.standardUserDefaults().setBool(true, setting);
    session_.startProgram();
    const auto x = XConnection::open();
    const auto waitForIndicatorOn = [&](const TestWindow& window) {
        return waitUntil([&] {
            const auto bounds = stackedWindow(*x, window.window()).bounds;
            const Rect wanted{bounds.x + bounds.width - 22, bounds.y + 2, 20, 20};
            const auto stack = stackedWindows(*x);
            return !stack.empty() && stack.front().isPopUp && stack.front().bounds == wanted;
        });
    };
    const TestWindow first({"class=First", "title=First", "at=100,100,400,300"});
    EXPECT_TRUE(waitForIndicatorOn(first));
    session_.user.minimise(first.window());
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::none_of(stackedWindows(*x), &StackedWindow::isPopUp); // beyond the screen's edge
    })) << "no window is left";
    const TestWindow second({"class=Second", "title=Second", "at=1000,50,500,500"});
    EXPECT_TRUE(waitForIndicatorOn(second));
    session_.user.activate(first.window());
    EXPECT_TRUE(waitForIndicatorOn(first));
    const auto place = stackedWindow(*x, first.window()).bounds;
    QProcess::execute("xdotool", {"windowmove", QString::number(first.window()), "300", "200"});
    ASSERT_TRUE(waitUntil([&] { return stackedWindow(*x, first.window()).bounds != place; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "moved";
    session_.user.fillScreen(first.window());
    ASSERT_TRUE(waitUntil([&] { return stackedWindow(*x, first.window()).bounds.y == 0; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "above what fills the screen";
}

TEST(Companion, IsAskedWhileItRuns) {
    ProgramSession session;
    session.startProgram();
    session.setRule("First", "xkb:ru");
    session.setRule("Second", "xkb:de");
    std::optional<TestProgram> companion(QUORVANE_TEST_COMPANION);
    ASSERT_TRUE(waitUntil([&] { return companion->output() == "ready\n"; }));
    const TestWindow first({"class=First"});
    EXPECT_TRUE(waitUntil([&] { return companion->output() == "ready\nxkb:ru\n"; }));
    const TestWindow second({"class=Second"});
    EXPECT_TRUE(waitUntil([&] { return companion->output() == "ready\nxkb:ru\nxkb:de\n"; }));
    EXPECT_EQ(session.group(), us) << "switching is the companion's job now";
    EXPECT_EQ(session.switchTimes(), 0);

    companion.reset();
    // The bus tells of the companion's end in its own time; each activation asks afresh.
    EXPECT_TRUE(waitUntil([&] {
        session.user.activate(activeWindow(session) == first.window() ? second.window() : first.window());
        return session.group() != us;
    }));
}

} // namespace
} // namespace quorvane
