// The floating indicator and the hot keys, in the whole program.

#include <algorithm>

#include <gtest/gtest.h>

#include "linux/program/ProgramSession.h"
#include "linux/support/TestWindow.h"
#include "platform/linux/windows/StackedWindow.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

class Following : public testing::TestWithParam<const char*> {
protected:
    Following() {
        auto& standard = session_.stores.standardUserDefaults();
        standard.setBool(true, key::enableTipOfState);
        standard.setBool(true, key::followWindow);
        standard.synchronize();
        session_.startProgram();
    }

    void change(xcb_window_t window, std::uint16_t what, std::vector<std::uint32_t> values) {
        xcb_configure_window(x_->xcb(), window, what, values.data()); // the window manager does it
        xcb_flush(x_->xcb());
    }

    Rect contents(xcb_window_t window) { return stackedWindow(*x_, window).bounds; }

    bool waitForIndicatorOn(const TestWindow& window) {
        return waitUntil([&] {
            const auto bounds = contents(window.window());
            const Rect wanted{bounds.x + bounds.width - 22, bounds.y + 2, 20, 20};
            const auto stack = stackedWindows(*x_);
            return !stack.empty() && stack.front().isPopUp && stack.front().bounds == wanted;
        });
    }

    ProgramSession session_{GetParam()};
    std::unique_ptr<XConnection> x_ = XConnection::open();
};
INSTANTIATE_TEST_SUITE_P(Program, Following, testing::Values("openbox", "xfwm4"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_P(Following, TheFrontWindowWhateverHappensToIt) {
    const TestWindow first({"class=First", "title=First", "at=100,100,400,300"});
    EXPECT_TRUE(waitForIndicatorOn(first));
    const auto place = contents(first.window());
    change(first.window(), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, {300, 200});
    ASSERT_TRUE(waitUntil([&] { return contents(first.window()) != place; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "moved";
    change(first.window(), XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, {600, 350});
    ASSERT_TRUE(waitUntil([&] { return contents(first.window()).width == 600; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "resized";
    {
        const TestWindow second({"class=Second", "title=Second", "at=50,50,500,500"});
        EXPECT_TRUE(waitForIndicatorOn(second));
        session_.user.minimise(second.window());
        EXPECT_TRUE(waitForIndicatorOn(first)) << "minimised";
        session_.user.activate(second.window());
        EXPECT_TRUE(waitForIndicatorOn(second));
    }
    EXPECT_TRUE(waitForIndicatorOn(first)) << "closed";
    session_.user.fillScreen(first.window());
    ASSERT_TRUE(waitUntil([&] { return contents(first.window()).y == 0; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "above what fills the screen";
    session_.user.minimise(first.window());
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::none_of(stackedWindows(*x_), &StackedWindow::isPopUp); // beyond the screen's edge
    })) << "no window is left";
}

TEST_P(Following, WindowsOnTwoMonitors) {
    for (const auto* primary : {"LEFT", "RIGHT"}) {
        const auto name = [&](const QString& monitor) { return (monitor == primary ? "*" : "") + monitor; };
        QProcess::execute("xrandr", {"--setmonitor", name("LEFT"), "800/211x900/238+0+0", "screen"});
        QProcess::execute("xrandr", {"--setmonitor", name("RIGHT"), "800/211x900/238+800+0", "none"});
        for (const auto* place : {"at=100,100,400,300", "at=1000,100,400,300"}) {
            const TestWindow window({"class=First", "title=First", place});
            EXPECT_TRUE(waitForIndicatorOn(window)) << primary << ' ' << place;
        }
        for (const auto* monitor : {"LEFT", "RIGHT"})
            QProcess::execute("xrandr", {"--delmonitor", monitor});
    }
}

TEST(HotKeys, SelectTheirSourceWhateverTheLayout) {
    ProgramSession session;
    constexpr std::int64_t positionOfR = 15, controlAndOption = 0xc0000;
    setShortcut(session.stores.standardUserDefaults(), "xkb:ru",
                InputShortcut{positionOfR, controlAndOption}.record());
    session.startProgram();
    constexpr std::uint8_t keys[] = {37, 64, 27};
    for (const std::string layout : {"de", "us"}) {
        session.setRule("In_" + layout, "xkb:" + layout);
        const TestWindow window({QString("class=In_%1").arg(layout.c_str())});
        ASSERT_TRUE(session.waitForGroup(layout == "us" ? 0 : 2));
        for (const auto keycode : keys)
            session.user.press(keycode);
        EXPECT_TRUE(session.waitForGroup(1)) << layout;
        for (const auto keycode : keys)
            session.user.release(keycode);
    }
}

} // namespace
} // namespace quorvane
