// What users want the program for, on a real desktop.

#include <algorithm>

#include <QRgb>
#include <gtest/gtest.h>

#include "linux/support/Groups.h"
#include "linux/support/Portal.h"
#include "linux/support/TestWindow.h"
#include "settings/Keys.h"
#include "virtual-desktop/TextProgram.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

class OnWindowManager : public testing::TestWithParam<const char*> {
protected:
    ProgramSession session_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Program, OnWindowManager, testing::Values("openbox", "xfwm4"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_P(OnWindowManager, WhatIsTypedIsInTheLayoutOfTheProgramInFront) {
    qputenv("LC_ALL", "C.UTF-8");
    session_.startProgram();
    session_.setRule("Cyrillic", "xkb:ru");
    session_.setRule("German", "xkb:de");
    TextProgram cyrillic(session_, TextProgram::Toolkit::xim, "Cyrillic");
    TextProgram german(session_, TextProgram::Toolkit::xim, "German");
    ASSERT_TRUE(cyrillic.waitUntilShown() && german.waitUntilShown() && session_.waitForGroup(de));
    const std::initializer_list<std::uint8_t> keys{38, 39, 52, 47}; // A S Z ; on an American keyboard
    session_.type(keys);
    EXPECT_TRUE(waitUntil([&] { return german.typed() == "asyö"; })) << german.typed().toStdString();
    ASSERT_TRUE(cyrillic.activate() && session_.waitForGroup(ru));
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
        const auto active = session_.activeWindow();
        const auto group = session_.group();
        return (active == first.window() && group == ru) || (active == second.window() && group == de);
    }));
}

TEST_P(OnWindowManager, TheIndicatorFollowsTheWindowInFront) {
    XServer::splitScreen("*LEFT", "RIGHT");
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
    for (const auto* filling : {&second, &first}) {
        session_.user.activate(filling->window());
        session_.user.fillScreen(filling->window());
        ASSERT_TRUE(waitUntil([&] { return stackedWindow(*x, filling->window()).bounds.y == 0; }));
        EXPECT_TRUE(waitForIndicatorOn(*filling)) << "above what fills the screen";
        EXPECT_TRUE(waitUntil([&] { return session_.activeWindow() == filling->window(); }));
    }
    for (int time = 0; time < 10; ++time) { // Long after the last activation, too.
        const TestWindow menu({"popup=1", "at=0,0,1600,900"});
        ASSERT_TRUE(waitForIndicatorOn(first)) << "and menus as large";
    }
    EXPECT_EQ(session_.user.values(session_.user.root(), "_NET_CLIENT_LIST").size(), 2U) << "none of them";
}

TEST(Indicator, ItsBoxIsAtOnceAsDarkAsTheUsersWindows) {
    ProgramSession session("openbox");
    Portal portal(1);
    session.stores.standardUserDefaults().setBool(true, key::enableTipOfState);
    session.startProgram();
    const auto x = XConnection::open();
    for (const bool isDark : {true, false, true}) {
        EXPECT_TRUE(waitUntil([&] {
            const auto stack = stackedWindows(*x);
            if (stack.empty() || !stack.front().isPopUp) return false;
            const auto& bounds = stack.front().bounds;
            const auto corner = session.user.pixelAt(int(bounds.x) + 4, int(bounds.y) + 4);
            return (qGray(corner) < 128) == isDark;
        })) << isDark;
        portal.change(isDark ? 2 : 1);
    }
}

TEST(Companion, IsAskedWhileItRuns) {
    ProgramSession session;
    session.startProgram();
    session.setRule("First", "xkb:ru");
    session.setRule("Second", "xkb:de");
    std::optional<RunningProgram> companion(QUORVANE_TEST_COMPANION);
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
        session.user.activate(session.activeWindow() == first.window() ? second.window() : first.window());
        return session.group() != us;
    }));
}

} // namespace
} // namespace quorvane
