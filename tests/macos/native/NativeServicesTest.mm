// What the real services answer in any session somebody is logged in to, whatever else runs there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "macos/native/RunLoopWait.h"
#import "platform/macos/appkit/MacScreens.h"
#import "platform/macos/appkit/MacWorkspace.h"
#import "platform/macos/foundation/MacRunLoop.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#include "platform/macos/input/TISInputSources.h"
#include "platform/macos/windows/CGWindowList.h"

namespace quorvane {
namespace {

TEST(MacRunLoop, RunsWhatIsDueInOrderAndNothingAfterItsEnd) {
    std::vector<std::string> ran;
    auto loop = std::make_unique<MacRunLoop>();
    loop->dispatchAfter(0.05, [&] { ran.emplace_back("later"); });
    loop->dispatchAfter(0, [&] { ran.emplace_back("at once"); });
    const auto ended = loop->scheduledTimer(0.01, true, [&] { ran.emplace_back("disarmed"); });
    ended->disarm();
    const auto timer = loop->scheduledTimer(0.1, false, [&] { ran.emplace_back("timer"); });
    EXPECT_TRUE(waitUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, testing::ElementsAre("at once", "later", "timer"));
    loop->dispatchAfter(0, [&] { ran.emplace_back("too late"); });
    loop.reset();
    bool isDone = false;
    MacRunLoop next;
    next.dispatchAfter(0.05, [&] { isDone = true; });
    EXPECT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_EQ(ran.size(), 3U);
}

TEST(TISInputSources, ListsTheCurrentSourceWhichCanBeSelected) {
    TISInputSources sources([](IconRef) { return nullptr; });
    const auto current = sources.copyCurrentKeyboardInputSource();
    ASSERT_TRUE(current);
    EXPECT_FALSE(sources.localizedName(*current).empty());
    EXPECT_THAT(sources.createInputSourceList(),
                testing::Contains(testing::Field(&InputSource::id, current->id)));
    EXPECT_TRUE(sources.selectInputSource(*current));
    EXPECT_EQ(sources.copyCurrentKeyboardInputSource()->id, current->id);
    EXPECT_TRUE(sources.copyCurrentKeyboardLayoutInputSource());
    EXPECT_THAT(sources.createInputSourceList("no.such.source"), testing::IsEmpty());
}

TEST(CGWindowList, ListsAWindowAsLongAsItIsOnTheScreen) {
    const auto own = [] {
        auto windows = CGWindowList().windows();
        std::erase_if(windows, [](const auto& each) { return each.name != "a window of its own"; });
        return windows;
    };
    NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 200)
                                                   styleMask:NSWindowStyleMaskBorderless
                                                     backing:NSBackingStoreBuffered
                                                       defer:NO];
    window.releasedWhenClosed = NO;
    window.title = @"a window of its own";
    [window orderFrontRegardless];
    ASSERT_TRUE(waitUntil([&] { return own().size() == 1; }));
    const auto listed = own().front();
    EXPECT_TRUE(listed.ownerName && listed.isOnScreen && listed.layer == 0);
    EXPECT_EQ(listed.bounds, (Rect{100, listed.bounds.y, 300, 200}));
    [window orderOut:nil];
    EXPECT_TRUE(waitUntil([&] { return own().empty(); }));
}

TEST(MacScreens, DescribesTheMainScreen) {
    const auto screen = MacScreens().mainScreen();
    ASSERT_TRUE(screen);
    EXPECT_NE(screen->number, 0);
    EXPECT_GT(screen->frame.width, 0);
    EXPECT_GT(screen->depth, 0);
    EXPECT_TRUE(MacScreens().deepestScreen());
}

TEST(MacWorkspace, KnowsWhatRuns) {
    const MacWorkspace workspace;
    EXPECT_THAT(workspace.runningApplicationsWithBundleIdentifier("com.apple.finder"), testing::SizeIs(1));
    EXPECT_THAT(workspace.runningApplicationsWithBundleIdentifier("no.such.application"), testing::IsEmpty());
    EXPECT_THAT(workspace.runningApplications(),
                testing::Contains(testing::Field(&RunningApplication::bundleIdentifier, "com.apple.dock")));
}

} // namespace
} // namespace quorvane
