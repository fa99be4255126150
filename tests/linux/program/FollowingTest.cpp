// The floating indicator, in the whole program.

#include <algorithm>

#include <gtest/gtest.h>

#include "linux/program/ProgramSession.h"
#include "linux/support/TestWindow.h"
#include "platform/linux/windows/StackedWindow.h"
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
    QProcess::execute("xdotool", {"windowmove", QString::number(first.window()), "300", "200"});
    ASSERT_TRUE(waitUntil([&] { return contents(first.window()) != place; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "moved";
    {
        const TestWindow second({"class=Second", "title=Second", "at=50,50,500,500"});
        EXPECT_TRUE(waitForIndicatorOn(second));
        session_.user.minimise(second.window());
        EXPECT_TRUE(waitForIndicatorOn(first)) << "minimised";
    }
    session_.user.fillScreen(first.window());
    ASSERT_TRUE(waitUntil([&] { return contents(first.window()).y == 0; }));
    EXPECT_TRUE(waitForIndicatorOn(first)) << "above what fills the screen";
    session_.user.minimise(first.window());
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::none_of(stackedWindows(*x_), &StackedWindow::isPopUp); // beyond the screen's edge
    })) << "no window is left";
}

} // namespace
} // namespace quorvane
