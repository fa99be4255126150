#import "platform/macos/shell/MacWindow.h"

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

MacWindow::MacWindow(NSWindow* window, NotificationCenter& notifications) : native_(window) {
    auto* center = &notifications;
    closes_ = [NSNotificationCenter.defaultCenter
        addObserverForName:NSWindowWillCloseNotification
                    object:native_
                     queue:nil
                usingBlock:^(NSNotification*) {
                  callProgram([&] { center->post({std::string(windowWillCloseNotification), this}); });
                }];
}

MacWindow::~MacWindow() {
    [NSNotificationCenter.defaultCenter removeObserver:closes_];
}

std::string MacWindow::title() const {
    return fromNSString(native_.title);
}

void MacWindow::setStyle(const WindowStyle& style) {
    // Whether a click activates the program is settled when a panel is made: it can be lost later, but not
    // changed back.
    const auto kept = native_.styleMask & NSWindowStyleMaskNonactivatingPanel;
    native_.styleMask = style.styleMask | kept;
    native_.opaque = style.isOpaque;
    native_.backgroundColor = style.hasClearBackground ? NSColor.clearColor : nil;
    setCollectionBehavior(style.collectionBehavior);
    setLevel(style.level);
    setMovableByWindowBackground(style.isMovableByWindowBackground);
}

void MacWindow::setLevel(int level) {
    native_.level = level;
}

void MacWindow::setCollectionBehavior(unsigned behavior) {
    native_.collectionBehavior = behavior;
}

void MacWindow::setMovableByWindowBackground(bool movable) {
    native_.movableByWindowBackground = movable;
}

void MacWindow::setFrameOrigin(Point origin) {
    [native_ setFrameOrigin:NSMakePoint(origin.x, origin.y)];
}

void MacWindow::makeKeyAndOrderFront() {
    if (native_.miniaturized) [native_ deminiaturize:nil];
    if (native_.canBecomeKeyWindow) [native_ makeKeyAndOrderFront:nil];
    // While the program is not active, what was done so far may leave the window behind those of others.
    [native_ orderFrontRegardless];
}

void MacWindow::orderOut() {
    [native_ orderOut:nil];
}

} // namespace quorvane
