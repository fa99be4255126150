#import "platform/macos/preferences/RulesTab.h"

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/MakeTable.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

constexpr CGFloat iconWidth = 32;
constexpr CGFloat nameWidth = 160;
constexpr CGFloat popUpWidth = 180;
constexpr CGFloat checkBoxWidth = 80;
constexpr CGFloat widestPopUp = 300;
constexpr CGFloat betweenGroups = 16;
constexpr CGFloat shareOfLocations = 0.6; // of the height of the other table

NSPopUpButton* makeDefaultInput(NSTextField* label, id target) {
    NSPopUpButton* popUp = [[NSPopUpButton alloc] initWithFrame:NSZeroRect pullsDown:NO];
    popUp.translatesAutoresizingMaskIntoConstraints = NO;
    popUp.target = target;
    popUp.action = @selector(defaultInputChanged:);
    popUp.accessibilityTitleUIElement = label;
    [popUp.widthAnchor constraintGreaterThanOrEqualToConstant:popUpWidth].active = YES;
    [popUp.widthAnchor constraintLessThanOrEqualToConstant:widestPopUp].active = YES;
    return popUp;
}

NSTextField* makeNoLocations() {
    constexpr CGFloat widestLine = 420;
    NSTextField* text =
        [NSTextField wrappingLabelWithString:
                         localized(@"Start the setup, then mark places in other applications with Tandrel.")];
    text.translatesAutoresizingMaskIntoConstraints = NO;
    text.selectable = NO;
    text.alignment = NSTextAlignmentCenter;
    text.textColor = NSColor.secondaryLabelColor;
    text.preferredMaxLayoutWidth = widestLine;
    return text;
}

/// The table, with the text in the middle of it.
NSView* makeTableWithText(NSView* scrollView, NSView* text) {
    NSView* both = [[NSView alloc] initWithFrame:NSZeroRect];
    both.translatesAutoresizingMaskIntoConstraints = NO;
    fill(both, scrollView);
    [both addSubview:text];
    [text.centerXAnchor constraintEqualToAnchor:both.centerXAnchor].active = YES;
    // The middle of the rows, not of rows and header.
    [text.centerYAnchor constraintEqualToAnchor:both.centerYAnchor constant:12].active = YES;
    return both;
}

NSView* makeApplicationsTable(RulesTab& tab, AppPrefsWindowController* target) {
    tab.applications =
        makeTable(localized(@"Switch by application"),
                  {{@"Icon", @"", iconWidth},
                   {@"Application Name", localized(@"Application Name"), nameWidth},
                   {@"Select Input", localized(@"Select Input"), popUpWidth},
                   {@"Force English Symbols", localized(@"Force English Symbols"), checkBoxWidth}});
    tab.applications.target = target;
    tab.applications.action = @selector(mouseDownByApplication:);
    return makeScrollView(tab.applications, 140);
}

NSView* makeApplicationsButtons(RulesTab& tab, AppPrefsWindowController* target) {
    NSButton* add =
        makeSymbolButton(@"plus", localized(@"Add Application"), target, @selector(AddApplication:));
    tab.removeApplication =
        makeSymbolButton(@"minus", localized(@"Remove Application"), target, @selector(RemoveApplication:));
    NSTextField* label = makeLabel(localized(@"Default input source:"));
    tab.defaultInput = makeDefaultInput(label, target);
    return makeRow(@[ add, tab.removeApplication, makeSpace(), label, tab.defaultInput ]);
}

NSView* makeLocationsTable(RulesTab& tab, AppPrefsWindowController* target) {
    tab.locations = makeTable(localized(@"Switch by location"),
                              {{@"Icon", @"", iconWidth},
                               {@"Location Name", localized(@"Location Name"), nameWidth},
                               {@"Select Input", localized(@"Select Input"), popUpWidth}});
    tab.locations.target = target;
    tab.locations.action = @selector(mouseDownByLocation:);
    tab.noLocations = makeNoLocations();
    return makeTableWithText(makeScrollView(tab.locations, 84), tab.noLocations);
}

NSView* makeLocationsButtons(RulesTab& tab, AppPrefsWindowController* target) {
    tab.removeLocation =
        makeSymbolButton(@"minus", localized(@"Remove Location"), target, @selector(RemoveLocation:));
    tab.setUp = [NSButton buttonWithTitle:localized(@"Start Setup")
                                   target:target
                                   action:@selector(startOrStopSetUpButtonClick:)];
    tab.setUp.translatesAutoresizingMaskIntoConstraints = NO;
    [tab.setUp setButtonType:NSButtonTypePushOnPushOff];
    NSButton* instructions =
        makeLink(localized(@"How it works"), target, @selector(instructionsForChangedInputByLocation:));
    NSButton* feedback = makeLink(localized(@"Feedback"), target, @selector(feedbackOfSwitchLocation:));
    return makeRow(@[ tab.removeLocation, tab.setUp, makeSpace(), instructions, feedback ]);
}

} // namespace

RulesTab makeRulesTab(AppPrefsWindowController* target) {
    RulesTab tab = {};
    NSView* applications = makeApplicationsTable(tab, target);
    NSView* applicationsButtons = makeApplicationsButtons(tab, target);
    NSView* locations = makeLocationsTable(tab, target);
    NSView* locationsButtons = makeLocationsButtons(tab, target);
    NSStackView* column = makeColumn(
        @[
            makeGroupTitle(localized(@"Switch by application")), applications, applicationsButtons,
            makeGroupTitle(localized(@"Switch by location")), locations, locationsButtons
        ],
        6, NSEdgeInsetsMake(14, 20, 8, 20));
    for (NSView* view in @[ applications, applicationsButtons, locations, locationsButtons ])
        stretch(column, view);
    [column setCustomSpacing:betweenGroups afterView:applicationsButtons];
    NSLayoutConstraint* share = [locations.heightAnchor constraintEqualToAnchor:applications.heightAnchor
                                                                     multiplier:shareOfLocations];
    share.active = YES;
    tab.view = column;
    return tab;
}

} // namespace quorvane
