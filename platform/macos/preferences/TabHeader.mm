#import "platform/macos/preferences/TabHeader.h"

#include <algorithm>

#import "platform/macos/preferences/Parts.h"

/// A button with some room around its picture and text, all of which can be clicked.
@interface QuorvaneTabHeaderButton : NSButton
@end

@implementation QuorvaneTabHeaderButton

- (NSSize)intrinsicContentSize {
    constexpr CGFloat smallestWidth = 76;
    constexpr CGFloat sideMargin = 10;
    constexpr CGFloat topMargin = 5;
    const NSSize content = super.intrinsicContentSize;
    return NSMakeSize(std::max(smallestWidth, content.width + 2 * sideMargin),
                      content.height + 2 * topMargin);
}

@end

namespace quorvane {
namespace {

constexpr CGFloat symbolPointSize = 18;
constexpr CGFloat cornerRadius = 6;
constexpr CGFloat shade = 0.3;

} // namespace

MacTabHeader::MacTabHeader(NSString* title, NSString* symbol, id target, SEL action)
    : view_([[NSView alloc] initWithFrame:NSZeroRect])
    , button_([QuorvaneTabHeaderButton buttonWithTitle:title
                                                 image:symbolNamed(symbol)
                                                target:target
                                                action:action]) {
    view_.translatesAutoresizingMaskIntoConstraints = NO;
    button_.bordered = NO;
    button_.imagePosition = NSImageAbove;
    button_.symbolConfiguration = [NSImageSymbolConfiguration configurationWithPointSize:symbolPointSize
                                                                                  weight:NSFontWeightRegular];
    button_.accessibilityRole = NSAccessibilityRadioButtonRole;
    button_.accessibilitySubrole = NSAccessibilityTabButtonSubrole;
    view_.wantsLayer = YES;
    view_.layer.cornerRadius = cornerRadius;
    fill(view_, button_);
    setShaded(false);
}

// The grey is the same in light and dark surroundings: a layer's colour does not follow them.
void MacTabHeader::setShaded(bool shaded) {
    NSColor* colour = shaded ? [NSColor.grayColor colorWithAlphaComponent:shade] : NSColor.clearColor;
    view_.layer.backgroundColor = colour.CGColor;
    button_.accessibilityValue = [NSNumber numberWithBool:shaded];
}

} // namespace quorvane
