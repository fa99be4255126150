#import "platform/macos/preferences/PreferencesContents.h"

#include <algorithm>

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/LinkTabs.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

NSTabViewItem* makeTab(NSView* contents) {
    NSView* page = [[NSView alloc] initWithFrame:NSZeroRect];
    [page addSubview:contents];
    NSLayoutConstraint* trailing = [contents.trailingAnchor constraintEqualToAnchor:page.trailingAnchor];
    NSLayoutConstraint* bottom = [contents.bottomAnchor constraintEqualToAnchor:page.bottomAnchor];
    // The tab view sizes its pages by their frames, and the page has none until it is seen first: the
    // contents must not insist on the room they need.
    trailing.priority = NSLayoutPriorityRequired - 1;
    bottom.priority = NSLayoutPriorityRequired - 1;
    [NSLayoutConstraint activateConstraints:@[
        [contents.leadingAnchor constraintEqualToAnchor:page.leadingAnchor],
        [contents.topAnchor constraintEqualToAnchor:page.topAnchor], trailing, bottom
    ]];
    NSTabViewItem* tab = [[NSTabViewItem alloc] initWithIdentifier:nil];
    tab.view = page;
    return tab;
}

/// Without tabs of its own, and large enough for each page.
NSTabView* makeTabView(NSArray<NSView*>* pages) {
    NSTabView* tabView = [[NSTabView alloc] initWithFrame:NSZeroRect];
    tabView.translatesAutoresizingMaskIntoConstraints = NO;
    tabView.tabViewType = NSNoTabsNoBorder;
    NSSize needed = NSMakeSize(0, 0);
    for (NSView* page in pages) {
        const NSSize size = page.fittingSize;
        needed = NSMakeSize(std::max(needed.width, size.width), std::max(needed.height, size.height));
        [tabView addTabViewItem:makeTab(page)];
    }
    [tabView setContentHuggingPriority:weakestPriority forOrientation:NSLayoutConstraintOrientationVertical];
    [tabView.widthAnchor constraintGreaterThanOrEqualToConstant:needed.width].active = YES;
    [tabView.heightAnchor constraintGreaterThanOrEqualToConstant:needed.height].active = YES;
    return tabView;
}

/// The headers in the middle of the window's width.
NSStackView* makeHeaders(NSArray<NSView*>* headers) {
    NSView* left = makeSpace();
    NSView* right = makeSpace();
    NSStackView* tabs = makeRow(headers);
    tabs.spacing = 4;
    tabs.accessibilityElement = YES;
    tabs.accessibilityRole = NSAccessibilityTabGroupRole;
    NSStackView* row = makeRow(@[ left, tabs, right ]);
    row.edgeInsets = NSEdgeInsetsMake(8, 12, 8, 12);
    [left.widthAnchor constraintEqualToAnchor:right.widthAnchor].active = YES;
    return row;
}

NSView* makeLine() {
    NSBox* line = [[NSBox alloc] initWithFrame:NSMakeRect(0, 0, 100, 1)]; // wider than high: a horizontal one
    line.translatesAutoresizingMaskIntoConstraints = NO;
    line.boxType = NSBoxSeparator;
    [line.heightAnchor constraintEqualToConstant:1].active = YES;
    return line;
}

NSStackView* makeStatus(NSTextField* version, NSTextField* switchTimes) {
    NSStackView* row = makeRow(@[ version, makeSpace(), switchTimes ]);
    row.edgeInsets = NSEdgeInsetsMake(4, 20, 10, 20);
    return row;
}

} // namespace

PreferencesContents::PreferencesContents(AppPrefsWindowController* target)
    : Rules1(localized(@"Rules"), @"list.bullet", target, @selector(Rules:))
    , Preference1(localized(@"Preference"), @"gearshape", target, @selector(Preference:))
    , Learn1(localized(@"Learn"), @"book", target, @selector(Learn:))
    , FreeApps1(localized(@"Free apps"), @"gift", target, @selector(FreeApps:))
    , Contactus1(localized(@"Contact us"), @"envelope", target, @selector(Contactus:))
    , rules(makeRulesTab(target))
    , preference(makePreferenceTab())
    , tabView(makeTabView(@[
        rules.view, preference.view, makeLearnTab(target), makeFreeAppsTab(target), makeContactUsTab(target)
    ]))
    , version(makeSecondaryLabel(@""))
    , switchTimes(makeSecondaryLabel(@"")) {
    NSArray<NSView*>* parts = @[
        makeHeaders(@[
            Rules1.native(), Preference1.native(), Learn1.native(), FreeApps1.native(), Contactus1.native()
        ]),
        makeLine(), tabView, makeStatus(version, switchTimes)
    ];
    NSStackView* column = makeColumn(parts, 0, NSEdgeInsetsMake(0, 0, 0, 0));
    for (NSView* part in parts)
        stretch(column, part);
    view = column;
}

} // namespace quorvane
