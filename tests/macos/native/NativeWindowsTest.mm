// The program's windows as AppKit makes them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "macos/native/RunLoopWait.h"
#import "platform/macos/MacDesktop.h"

namespace quorvane {
namespace {

TEST(MacKeyWindow, TakesTheFocusWithoutMakingThisProgramTheActiveOne) {
    NotificationCenter notifications;
    MacKeyWindow window(notifications);
    const auto front = MacWorkspace().frontmostApplication();
    window.makeKeyAndOrderFront();
    EXPECT_TRUE(waitUntil([&] { return window.native().keyWindow; }));
    window.orderOut();
    EXPECT_TRUE(waitUntil([&] { return !window.native().visible; }));
    EXPECT_EQ(MacWorkspace().frontmostApplication(), front);
}

TEST(MacIndicatorWindow, IsThereFromTheStartAndNeverTakesTheFocus) {
    NotificationCenter notifications;
    MacIndicatorWindow indicator(notifications);
    EXPECT_TRUE(indicator.native().visible);
    EXPECT_FALSE(indicator.native().canBecomeKeyWindow);
    indicator.setStyle({.styleMask = 0, .isOpaque = false, .hasClearBackground = true, .level = 1000});
    EXPECT_TRUE(indicator.native().styleMask & NSWindowStyleMaskNonactivatingPanel);
    EXPECT_FALSE(indicator.native().opaque);
    indicator.setFrameOrigin({30, 40});
    const NSRect frame = indicator.native().frame;
    EXPECT_TRUE(frame.origin.x == 30 && frame.origin.y == 40 && frame.size.width == 20);
}

TEST(MacPreferences, OpenAtTheProgramsRequestAndTellThatTheyClose) {
    MacDesktop desktop;
    AppDelegate program(desktop.desktop());
    int closed = 0;
    const auto subscription = desktop.desktop().notifications.addObserver(
        windowWillCloseNotification, nullptr, [&](const Notification& notification) {
            EXPECT_EQ(notification.object->title(), "Quorvane");
            ++closed;
        });
    const auto shown = []() -> NSWindow* {
        for (NSWindow* window in NSApplication.sharedApplication.windows)
            if (window.visible && [window.title isEqualToString:@"Quorvane"]) return window;
        return nil;
    };
    program.openPreferences();
    ASSERT_TRUE(waitUntil([&] { return shown() != nil; }));
    [shown() performClose:nil];
    EXPECT_TRUE(waitUntil([&] { return shown() == nil; }));
    EXPECT_EQ(closed, 1);
}

} // namespace
} // namespace quorvane
