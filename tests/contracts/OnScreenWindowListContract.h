#pragma once

#include "contracts/Contract.h"
#include "platform/OnScreenWindowList.h"

namespace quorvane {

class OnScreenWindowListBench : public ContractBench {
public:
    virtual OnScreenWindowList& windowList() = 0;

    // Windows are told apart by title, and open in front; menus above all. The bounds are those of the
    // contents; the desktop may put a frame around them, or move them by the width of one.
    virtual void openWindow(const std::string& owner, const std::string& title, Rect bounds) = 0;
    virtual void openMenu(const std::string& owner, const std::string& title, Rect bounds) = 0;
    virtual void bringToFront(const std::string& title) = 0;
    virtual void minimise(const std::string& title) = 0;
};

class OnScreenWindowListContract : public Contract<OnScreenWindowListBench> {
protected:
    /// The titles of the visible windows, front to back.
    std::vector<std::string> visible() const {
        std::vector<std::string> titles;
        for (const auto& window : list_.windows()) {
            if (window.isOnScreen) titles.push_back(window.name.value_or("none"));
        }
        return titles;
    }
    void waitForVisible(const std::vector<std::string>& titles) {
        waitUntil([&] { return visible() == titles; });
        ASSERT_EQ(visible(), titles);
    }

    OnScreenWindowList& list_ = bench_->windowList();
};

TEST_P(OnScreenWindowListContract, ListsWindowsFrontToBack) {
    bench_->openWindow("Alpha", "first", {100, 100, 300, 200});
    bench_->openWindow("Beta", "second", {150, 150, 300, 200});
    waitForVisible({"second", "first"});
    bench_->bringToFront("first");
    waitForVisible({"first", "second"});
    bench_->minimise("first");
    waitForVisible({"second"});
}

TEST_P(OnScreenWindowListContract, DescribesAWindowAndAMenuAboveIt) {
    bench_->openWindow("Alpha", "Übung", {100, 120, 300, 200});
    waitForVisible({"Übung"});
    const auto window = list_.windows().front();
    EXPECT_EQ(window.ownerName, "Alpha");
    EXPECT_EQ(window.layer, 0);
    constexpr double widestFrame = 40;
    EXPECT_NEAR(window.bounds.x, 100, widestFrame);
    EXPECT_NEAR(window.bounds.y, 120, widestFrame);
    EXPECT_EQ(window.bounds.width, 300) << "without the frame";
    EXPECT_EQ(window.bounds.height, 200);

    bench_->openMenu("Alpha", "menu", {120, 130, 80, 90});
    waitForVisible({"menu", "Übung"});
    const auto menu = list_.windows().front();
    EXPECT_GT(menu.layer, 0);
    EXPECT_EQ(menu.bounds, (Rect{120, 130, 80, 90}));
}

} // namespace quorvane
