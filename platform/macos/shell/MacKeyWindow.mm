#import "platform/macos/shell/MacKeyWindow.h"

/// A panel without a border, which otherwise would not become the key window.
@interface QuorvaneKeyPanel : NSPanel
@end

@implementation QuorvaneKeyPanel

- (BOOL)canBecomeKeyWindow {
    return YES;
}

@end

namespace quorvane {
namespace {

NSPanel* makePanel() {
    QuorvaneKeyPanel* panel = [[QuorvaneKeyPanel alloc]
        initWithContentRect:NSMakeRect(0, 0, 1, 1)
                  styleMask:NSWindowStyleMaskBorderless | NSWindowStyleMaskNonactivatingPanel
                    backing:NSBackingStoreBuffered
                      defer:NO];
    panel.hidesOnDeactivate = NO;
    panel.canHide = NO;
    panel.releasedWhenClosed = NO;
    panel.alphaValue = 0;
    panel.hasShadow = NO;
    panel.ignoresMouseEvents = YES;
    panel.animationBehavior = NSWindowAnimationBehaviorNone;
    panel.excludedFromWindowsMenu = YES;
    panel.accessibilityElement = NO; // A screen reader has nothing to say about it.
    // Wherever the program in front is: the window must not take the user to another space.
    panel.collectionBehavior = NSWindowCollectionBehaviorCanJoinAllSpaces |
                               NSWindowCollectionBehaviorFullScreenAuxiliary |
                               NSWindowCollectionBehaviorTransient | NSWindowCollectionBehaviorIgnoresCycle;
    return panel;
}

} // namespace

MacKeyWindow::MacKeyWindow(NotificationCenter& notifications) : MacWindow(makePanel(), notifications) {}

/// The main screen is that of the window with the keyboard focus. It stays the same when this window has it.
void MacKeyWindow::makeKeyAndOrderFront() {
    if (NSScreen* screen = NSScreen.mainScreen) [native() setFrameOrigin:screen.frame.origin];
    MacWindow::makeKeyAndOrderFront();
}

} // namespace quorvane
