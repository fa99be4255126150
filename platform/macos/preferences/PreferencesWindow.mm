#import "platform/macos/preferences/PreferencesWindow.h"

#include <algorithm>

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

constexpr CGFloat usualWidth = 760;
constexpr CGFloat usualHeight = 640;
constexpr CGFloat titleBarHeight = 28;
NSString* const frameName = @"Preferences";

/// Whether the user can take hold of the window: the screen it was on may be gone.
bool isWithinReach(NSWindow* window) {
    const NSRect frame = window.frame;
    const NSRect titleBar = NSMakeRect(frame.origin.x, frame.origin.y + frame.size.height - titleBarHeight,
                                       frame.size.width, titleBarHeight);
    for (NSScreen* screen in NSScreen.screens)
        if (NSIntersectsRect(screen.visibleFrame, titleBar)) return true;
    return false;
}

} // namespace

NSWindow* makePreferencesWindow() {
    const auto style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskMiniaturizable |
                       NSWindowStyleMaskResizable;
    NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, usualWidth, usualHeight)
                                                   styleMask:style
                                                     backing:NSBackingStoreBuffered
                                                       defer:YES];
    window.releasedWhenClosed = NO;
    window.title = localized(@"Quorvane");
    window.restorable = NO; // an agent shows it when it is asked to
    window.tabbingMode = NSWindowTabbingModeDisallowed;
    window.autorecalculatesKeyViewLoop = YES;
    return window;
}

void fillPreferencesWindow(NSWindow* window, NSView* contents) {
    const NSSize needed = contents.fittingSize;
    NSView* contentView = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, usualWidth, usualHeight)];
    fill(contentView, contents);
    window.contentView = contentView;
    window.contentMinSize = needed;
    [window
        setContentSize:NSMakeSize(std::max(usualWidth, needed.width), std::max(usualHeight, needed.height))];
    const bool isRestored = [window setFrameUsingName:frameName];
    if (!isRestored || !isWithinReach(window)) [window center];
    [window setFrameAutosaveName:frameName];
}

} // namespace quorvane
