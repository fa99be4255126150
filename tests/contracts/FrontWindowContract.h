#pragma once

#include <algorithm>
#include <cmath>

#include "contracts/Contract.h"
#include "platform/OnScreenWindowList.h"

namespace quorvane {

class OnScreenWindowListBench : public ContractBench {
public:
    virtual OnScreenWindowList& windowList() = 0;

    /// By how much a window may lie elsewhere than it was put: the width of a frame around it. In points.
    virtual double widestFrame() const { return 40; }

    // Windows are told apart by title, and open in front; menus above all. The bounds are those of the
    // contents.
    virtual void openWindow(const std::string& owner, const std::string& title, Rect bounds) = 0;
    virtual void openMenu(const std::string& /*owner*/, const std::string& /*title*/, Rect /*bounds*/) {}
    virtual void bringToFront(const std::string& title) = 0;
    virtual void minimise(const std::string& title) = 0;
};

/// What holds on every desktop. Some list only the front window and that of a launcher: nothing else is asked
/// for, and they have no menus.
class FrontWindowContract : public Contract<OnScreenWindowListBench> {
protected:
    /// The titles of the visible windows, front to back.
    std::vector<std::string> visible() const {
        std::vector<std::string> titles;
        for (const auto& window : list_.windows()) {
            if (window.isOnScreen) titles.push_back(window.name.value_or("none"));
        }
        return titles;
    }
    void waitForFront(const std::string& title) {
        ASSERT_TRUE(waitUntil([&] { return !visible().empty() && visible().front() == title; })) << title;
    }

    OnScreenWindowList& list_ = bench_->windowList();
};

TEST_P(FrontWindowContract, ListsAndDescribesTheFrontWindowWhoeverItIs) {
    bench_->openWindow("Alpha", "first", {100, 120, 300, 200});
    waitForFront("first");
    EXPECT_TRUE(waitUntil([&] { // Some desktops place windows once they are open.
        const auto bounds = list_.windows().front().bounds;
        const double frame = bench_->widestFrame();
        return std::abs(bounds.x - 100) <= frame && std::abs(bounds.y - 120) <= frame &&
               bounds.width == 300 && bounds.height == 200;
    })) << "without the frame";
    const auto window = list_.windows().front();
    EXPECT_EQ(window.ownerName, "Alpha");
    EXPECT_EQ(window.layer, 0);
    bench_->openWindow("Beta", "Übung", {150, 150, 300, 200});
    waitForFront("Übung");
    EXPECT_EQ(list_.windows().front().ownerName, "Beta");
    bench_->bringToFront("first");
    waitForFront("first");
    bench_->minimise("first");
    EXPECT_TRUE(waitUntil([&] { return std::ranges::count(visible(), "first") == 0; }));
}

} // namespace quorvane
