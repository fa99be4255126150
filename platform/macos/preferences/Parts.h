#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

// What the tabs of the preferences window are made of. Every view is laid out by constraints. Targets are not
// kept alive.

/// Of what gives way to everything else.
inline constexpr NSLayoutPriority weakestPriority = 1;

// Texts, all of one line.
NSTextField* makeLabel(NSString* text);
NSTextField* makeSecondaryLabel(NSString* text);
NSTextField* makeGroupTitle(NSString* text);
NSTextField* makePageTitle(NSString* text);

/// A picture of the system's, in the colour of its surroundings; an empty one when there is none of this
/// name.
NSImage* symbolNamed(NSString* name);

/// A small button with a picture only. The tool tip is also its name.
NSButton* makeSymbolButton(NSString* symbol, NSString* toolTip, id target, SEL action);

/// A button that looks like a link.
NSButton* makeLink(NSString* title, id target, SEL action);

/// A link with a picture before it and a description below.
NSView* makeDescribedLink(NSString* title, NSString* description, id target, SEL action);

/// Takes the room that its neighbours do not need.
NSView* makeSpace();

/// The views beside each other.
NSStackView* makeRow(NSArray<NSView*>* views);

/// The views below each other, as wide as they need to be.
NSStackView* makeColumn(NSArray<NSView*>* views, CGFloat spacing, NSEdgeInsets margins);

/// Makes a view of the column as wide as that is.
void stretch(NSStackView* column, NSView* view);

/// Puts the view into the other one, which has then the same size.
void fill(NSView* outer, NSView* inner);

} // namespace quorvane
