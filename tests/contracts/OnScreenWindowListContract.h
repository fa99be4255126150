#pragma once

#include "contracts/FrontWindowContract.h"

namespace quorvane {

/// On a desktop that lists all windows.
class OnScreenWindowListContract : public FrontWindowContract {
protected:
    void waitForVisible(const std::vector<std::string>& titles) {
        waitUntil([&] { return visible() == titles; });
        ASSERT_EQ(visible(), titles);
    }
};

TEST_P(OnScreenWindowListContract, ListsWindowsFrontToBackAndMenusAboveThem) {
    bench_->openWindow("Alpha", "first", {100, 100, 300, 200});
    bench_->openWindow("Beta", "second", {150, 150, 300, 200});
    waitForVisible({"second", "first"});
    bench_->bringToFront("first");
    waitForVisible({"first", "second"});
    bench_->minimise("first");
    waitForVisible({"second"});
    bench_->openMenu("Alpha", "menu", {120, 130, 80, 90});
    waitForVisible({"menu", "second"});
    const auto menu = list_.windows().front();
    EXPECT_GT(menu.layer, 0);
    EXPECT_EQ(menu.bounds, (Rect{120, 130, 80, 90}));
}

} // namespace quorvane
