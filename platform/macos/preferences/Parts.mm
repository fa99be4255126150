#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

constexpr CGFloat pageTitleScale = 1.4; // of the usual text's size
constexpr CGFloat symbolButtonSide = 24;

NSStackView* makeStack(NSArray<NSView*>* views) {
    NSStackView* stack = [NSStackView stackViewWithViews:views];
    stack.translatesAutoresizingMaskIntoConstraints = NO;
    stack.distribution = NSStackViewDistributionFill;
    return stack;
}

} // namespace

NSTextField* makeLabel(NSString* text) {
    NSTextField* label = [NSTextField labelWithString:text];
    label.translatesAutoresizingMaskIntoConstraints = NO;
    return label;
}

NSTextField* makeSecondaryLabel(NSString* text) {
    NSTextField* label = makeLabel(text);
    label.font = [NSFont systemFontOfSize:NSFont.smallSystemFontSize];
    label.textColor = NSColor.secondaryLabelColor;
    return label;
}

NSTextField* makeGroupTitle(NSString* text) {
    NSTextField* label = makeLabel(text);
    label.font = [NSFont boldSystemFontOfSize:NSFont.systemFontSize];
    return label;
}

NSTextField* makePageTitle(NSString* text) {
    NSTextField* label = makeLabel(text);
    label.font = [NSFont systemFontOfSize:NSFont.systemFontSize * pageTitleScale];
    return label;
}

NSImage* symbolNamed(NSString* name) {
    // Without a description: the widget that shows it has a name.
    NSImage* symbol = [NSImage imageWithSystemSymbolName:name accessibilityDescription:nil];
    return symbol ? symbol : [[NSImage alloc] initWithSize:NSMakeSize(0, 0)];
}

NSButton* makeSymbolButton(NSString* symbol, NSString* toolTip, id target, SEL action) {
    NSButton* button = [NSButton buttonWithImage:symbolNamed(symbol) target:target action:action];
    button.translatesAutoresizingMaskIntoConstraints = NO;
    button.bezelStyle = NSBezelStyleSmallSquare;
    button.toolTip = toolTip;
    button.accessibilityLabel = toolTip;
    [button.widthAnchor constraintEqualToConstant:symbolButtonSide].active = YES;
    [button.heightAnchor constraintEqualToConstant:symbolButtonSide].active = YES;
    return button;
}

NSButton* makeLink(NSString* title, id target, SEL action) {
    NSButton* link = [NSButton buttonWithTitle:title target:target action:action];
    link.translatesAutoresizingMaskIntoConstraints = NO;
    link.bordered = NO;
    link.contentTintColor = NSColor.linkColor;
    return link;
}

NSView* makeDescribedLink(NSString* title, NSString* description, id target, SEL action) {
    NSButton* link = makeLink(title, target, action);
    link.image = symbolNamed(@"arrow.up.right.square");
    link.imagePosition = NSImageLeading;
    link.accessibilityHelp = description;
    return makeColumn(@[ link, makeSecondaryLabel(description) ], 2, NSEdgeInsetsMake(0, 0, 0, 0));
}

NSView* makeSpace() {
    NSView* space = [[NSView alloc] initWithFrame:NSZeroRect];
    space.translatesAutoresizingMaskIntoConstraints = NO;
    for (NSLayoutDimension* side in @[ space.widthAnchor, space.heightAnchor ]) {
        NSLayoutConstraint* none = [side constraintEqualToConstant:0];
        none.priority = weakestPriority;
        none.active = YES;
    }
    return space;
}

NSStackView* makeRow(NSArray<NSView*>* views) {
    NSStackView* row = makeStack(views);
    row.orientation = NSUserInterfaceLayoutOrientationHorizontal;
    row.alignment = NSLayoutAttributeCenterY;
    row.spacing = 8;
    return row;
}

NSStackView* makeColumn(NSArray<NSView*>* views, CGFloat spacing, NSEdgeInsets margins) {
    NSStackView* column = makeStack(views);
    column.orientation = NSUserInterfaceLayoutOrientationVertical;
    column.alignment = NSLayoutAttributeLeading;
    column.spacing = spacing;
    column.edgeInsets = margins;
    return column;
}

void stretch(NSStackView* column, NSView* view) {
    [view.trailingAnchor constraintEqualToAnchor:column.trailingAnchor constant:-column.edgeInsets.right]
        .active = YES;
}

void fill(NSView* outer, NSView* inner) {
    inner.translatesAutoresizingMaskIntoConstraints = NO;
    [outer addSubview:inner];
    [NSLayoutConstraint activateConstraints:@[
        [inner.leadingAnchor constraintEqualToAnchor:outer.leadingAnchor],
        [inner.trailingAnchor constraintEqualToAnchor:outer.trailingAnchor],
        [inner.topAnchor constraintEqualToAnchor:outer.topAnchor],
        [inner.bottomAnchor constraintEqualToAnchor:outer.bottomAnchor]
    ]];
}

} // namespace quorvane
