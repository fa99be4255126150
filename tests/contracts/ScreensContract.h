#pragma once

#include "contracts/Contract.h"
#include "platform/Screens.h"

namespace quorvane {

class ScreensBench : public ContractBench {
public:
    virtual Screens& screens() = 0;

    /// Two screens of 800 x 900 side by side, the left one primary; or one screen of 1600 x 900.
    virtual void connectSecondScreen() = 0;
    virtual void disconnectSecondScreen() = 0;

    /// Gives the keyboard focus to a window on the left or right half of the desktop.
    virtual void focusLeft() = 0;
    virtual void focusRight() = 0;
};

class ScreensContract : public Contract<ScreensBench> {
protected:
    bool waitForMain(Rect frame) {
        return waitUntil([&] { return screens_.mainScreen()->frame == frame; });
    }

    static constexpr Rect whole{0, 0, 1600, 900}, left{0, 0, 800, 900}, right{800, 0, 800, 900};
    Screens& screens_ = bench_->screens();
};

TEST_P(ScreensContract, TheMainScreenIsTheOnlyOneOrFollowsTheKeyboardFocus) {
    const auto screen = screens_.mainScreen();
    ASSERT_TRUE(screen);
    EXPECT_EQ(screen->frame, whole);
    EXPECT_NE(screen->number, 0);
    EXPECT_GT(screen->depth, 0);
    EXPECT_EQ(screens_.deepestScreen(), screen);

    bench_->connectSecondScreen();
    bench_->focusRight();
    ASSERT_TRUE(waitForMain(right));
    const auto second = screens_.mainScreen()->number;
    bench_->focusLeft();
    ASSERT_TRUE(waitForMain(left));
    EXPECT_NE(screens_.mainScreen()->number, second);
    EXPECT_EQ(screens_.deepestScreen(), screens_.mainScreen());
    bench_->focusRight();
    ASSERT_TRUE(waitForMain(right));
    EXPECT_EQ(screens_.mainScreen()->number, second);
    bench_->disconnectSecondScreen();
    EXPECT_TRUE(waitForMain(whole));
}

} // namespace quorvane
