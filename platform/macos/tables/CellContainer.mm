#import "platform/macos/tables/CellContainer.h"

/// Shows the row's selection in its parts, as `NSTableCellView` does.
@interface QuorvaneImageContainer : NSImageView
- (void)setBackgroundStyle:(NSBackgroundStyle)backgroundStyle;
@end

@implementation QuorvaneImageContainer

- (void)setBackgroundStyle:(NSBackgroundStyle)backgroundStyle {
    for (NSView* part in self.subviews) {
        if ([part isKindOfClass:[NSControl class]])
            static_cast<NSControl*>(part).cell.backgroundStyle = backgroundStyle;
    }
}

@end

namespace quorvane {

NSRect rectOf(const Rect& frame) {
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

NSView* makeContainer(const Rect& frame) {
    NSView* container = nil;
    if (frame == Rect()) {
        container = [[QuorvaneImageContainer alloc] initWithFrame:NSZeroRect];
        container.accessibilityElement = NO; // It has no image, its parts are what there is.
    } else {
        container = [[NSTableCellView alloc] initWithFrame:rectOf(frame)];
    }
    // A text that is wider than its column would be seen, in newer systems, in the next one.
    container.wantsLayer = YES;
    container.layer.masksToBounds = YES;
    return container;
}

} // namespace quorvane
