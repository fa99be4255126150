#import "platform/macos/shell/MacIndicatorWindow.h"

#import "platform/macos/shell/TemplateImage.h"

/// The icon: a drag on it moves the window.
@interface IconView : NSImageView
@end

@implementation IconView

- (BOOL)mouseDownCanMoveWindow {
    return YES;
}

@end

namespace quorvane {
namespace {

constexpr CGFloat indicatorSize = 20; // points: an icon of 18 on its box
constexpr CGFloat longestIconSide = 18;
constexpr CGFloat cornerRadius = 5;
constexpr CGFloat line = 0.5; // tells the box from a window of its colour

NSPanel* makePanel() {
    NSPanel* panel =
        [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, indicatorSize, indicatorSize)
                                   styleMask:NSWindowStyleMaskBorderless | NSWindowStyleMaskNonactivatingPanel
                                     backing:NSBackingStoreBuffered
                                       defer:NO];
    panel.hidesOnDeactivate = NO;
    panel.canHide = NO;
    panel.releasedWhenClosed = NO;
    panel.opaque = NO;
    panel.backgroundColor = NSColor.clearColor;
    panel.hasShadow = NO;
    panel.animationBehavior = NSWindowAnimationBehaviorNone;
    panel.excludedFromWindowsMenu = YES;
    return panel;
}

NSView* makeBox() {
    NSBox* box = [[NSBox alloc] initWithFrame:NSMakeRect(0, 0, indicatorSize, indicatorSize)];
    box.boxType = NSBoxCustom;
    box.titlePosition = NSNoTitle;
    box.cornerRadius = cornerRadius;
    box.borderWidth = line;
    box.borderColor = NSColor.tertiaryLabelColor;
    box.fillColor = NSColor.controlBackgroundColor;
    box.hidden = YES;
    return box;
}

NSImageView* makeIcon() {
    constexpr CGFloat margin = (indicatorSize - longestIconSide) / 2;
    NSImageView* icon =
        [[::IconView alloc] initWithFrame:NSMakeRect(margin, margin, longestIconSide, longestIconSide)];
    icon.imageScaling = NSImageScaleProportionallyDown;
    icon.contentTintColor = NSColor.labelColor; // of templates only
    icon.hidden = YES;
    return icon;
}

} // namespace

MacIndicatorWindow::MacIndicatorWindow(NotificationCenter& notifications)
    : MacWindow(makePanel(), notifications)
    , iconBox_(makeBox())
    , iconView_(makeIcon()) {
    [native().contentView addSubview:iconBox_.native()];
    [native().contentView addSubview:iconView_.native()];
    MacWindow::makeKeyAndOrderFront();
}

void MacIndicatorWindow::IconView::setHidden(bool hidden) {
    view_.hidden = hidden;
}

// What stands on the box is black and must be seen on a dark one, too.
void MacIndicatorWindow::IconView::setImage(ImageRef image) {
    view_.image = adapting(image);
}

void MacIndicatorWindow::IconBox::setHidden(bool hidden) {
    view_.hidden = hidden;
}

} // namespace quorvane
