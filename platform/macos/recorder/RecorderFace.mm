#import "platform/macos/recorder/RecorderFace.h"

#include <algorithm>
#include <cmath>

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#include "platform/macos/recorder/KeyNames.h"

namespace quorvane {
namespace {

using Display = RecorderBehaviour::Display;

constexpr CGFloat fontSize = 12;
constexpr CGFloat padding = 6;
constexpr CGFloat clearSide = 16;
constexpr CGFloat faceHeight = 21; // half a point around the box behind it

NSButton* makeClearButton(id target, SEL action) {
    NSButton* button = [[NSButton alloc] initWithFrame:NSZeroRect];
    [button setButtonType:NSButtonTypeMomentaryChange];
    button.bordered = NO;
    button.title = @"";
    button.imagePosition = NSImageOnly;
    button.image = [NSImage imageWithSystemSymbolName:@"xmark.circle.fill" accessibilityDescription:nil];
    button.contentTintColor = NSColor.secondaryLabelColor;
    button.refusesFirstResponder = YES;
    button.toolTip = localized(@"Clear shortcut");
    button.accessibilityLabel = localized(@"Clear shortcut");
    button.target = target;
    button.action = action;
    return button;
}

NSString* hintOf(Display display) {
    if (display == Display::prompt) return localized(@"Press the keys");
    if (display == Display::refusal) return localized(@"This key cannot be used");
    return localized(@"Record shortcut");
}

/// Empty when there is none, nor a part of one.
std::string combinationOf(const RecorderBehaviour& recorder) {
    if (recorder.display() == Display::heldModifiers) return textOfModifiers(recorder.heldFlags()) + "…";
    const auto shortcut = InputShortcut::ofRecord(recorder.objectValue());
    if (recorder.display() != Display::objectValue || !shortcut) return {};
    return textOf(*shortcut, fromNSString(localized(@"Space")));
}

NSString* textOfRefusal() {
    return localized(
        @"This shortcut has no effect: something else uses it, or this keyboard cannot send it.");
}

} // namespace

RecorderFace::RecorderFace(NSView* view, SEL clear) : clearButton_(makeClearButton(view, clear)) {
    [view addSubview:clearButton_];
}

bool RecorderFace::show(const RecorderBehaviour& recorder, bool isRefused) {
    const auto combination = combinationOf(recorder);
    NSString* before = text_;
    isHint_ = combination.empty();
    isMarked_ = isRefused && !recorder.isInUse();
    const std::string mark = isMarked_ ? "⚠ " : "";
    text_ = shownText(mark + (isHint_ ? fromNSString(hintOf(recorder.display())) : combination));
    clearButton_.hidden = !recorder.canBeCleared();
    return ![text_ isEqualToString:before];
}

NSRect RecorderFace::placeIn(NSRect bounds) {
    const CGFloat height = std::min(faceHeight, bounds.size.height);
    return NSMakeRect(0, bounds.size.height - height, bounds.size.width, height);
}

void RecorderFace::layOut(NSView* view) {
    const NSRect place = placeIn(view.bounds);
    clearButton_.frame =
        NSMakeRect(place.size.width - padding / 2 - clearSide,
                   place.origin.y + (place.size.height - clearSide) / 2, clearSide, clearSide);
    const bool fits = [text_ sizeWithAttributes:attributes()].width <= placeOfText(place).size.width;
    // The system reads it out as the help of the view, too.
    view.toolTip = isMarked_ ? textOfRefusal() : fits ? nil : text_;
}

void RecorderFace::draw(NSRect bounds) const {
    const NSRect place = placeOfText(placeIn(bounds));
    const CGFloat height = [text_ sizeWithAttributes:attributes()].height;
    const CGFloat bottom = place.origin.y + std::floor((place.size.height - height) / 2);
    [text_ drawInRect:NSMakeRect(place.origin.x, bottom, place.size.width, height)
        withAttributes:attributes()];
}

/// In the middle, and as far from either end as the cross.
NSRect RecorderFace::placeOfText(NSRect face) const {
    const CGFloat side = clearButton_.hidden ? padding : padding + clearSide;
    return NSMakeRect(side, face.origin.y, std::max(face.size.width - 2 * side, 0.0), face.size.height);
}

/// Colours that change with the appearance: they are looked up when something is drawn.
NSDictionary<NSAttributedStringKey, id>* RecorderFace::attributes() const {
    NSMutableParagraphStyle* style = [[NSMutableParagraphStyle alloc] init];
    style.alignment = NSTextAlignmentCenter;
    style.lineBreakMode = NSLineBreakByTruncatingTail;
    return @{
        NSFontAttributeName : [NSFont systemFontOfSize:fontSize],
        NSForegroundColorAttributeName : isHint_ ? NSColor.placeholderTextColor : NSColor.controlTextColor,
        NSParagraphStyleAttributeName : style
    };
}

} // namespace quorvane
