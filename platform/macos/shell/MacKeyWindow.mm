#import "platform/macos/shell/MacKeyWindow.h"

#include <cstdint>

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

/// How long the window keeps the focus. Nobody documents how long that has to be, nor has it been tried:
/// should input methods stay behind with none, this is the number to raise.
constexpr double timeWithFocus = 0; // seconds

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

void MacKeyWindow::orderOut() {
    if constexpr (timeWithFocus <= 0) {
        MacWindow::orderOut();
    } else {
        constexpr auto delay = static_cast<std::int64_t>(timeWithFocus * static_cast<double>(NSEC_PER_SEC));
        NSWindow* window = native();
        dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay), dispatch_get_main_queue(), ^{
          [window orderOut:nil];
        });
    }
}

} // namespace quorvane
