#import "platform/macos/preferences/PreferenceTab.h"

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/MakeTable.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

constexpr CGFloat iconWidth = 44;
constexpr CGFloat nameWidth = 160;
constexpr CGFloat recorderWidth = 164;
constexpr CGFloat betweenGroups = 16;

NSButton* makeCheckBox(NSString* title, NSString* toolTip = nil) {
    NSButton* button = [NSButton checkboxWithTitle:title target:nil action:nil];
    button.translatesAutoresizingMaskIntoConstraints = NO;
    button.toolTip = toolTip;
    return button;
}

NSTableView* makeShortcutsTable() {
    return makeTable(localized(@"Shortcuts"), {{@"Icon", @"", iconWidth},
                                               {@"Input", localized(@"Input Source"), nameWidth},
                                               {@"ShortCut", localized(@"Shortcut"), recorderWidth}});
}

} // namespace

PreferenceTab makePreferenceTab() {
    PreferenceTab tab{.view = nil,
                      .autoStartAtLogin = makeCheckBox(localized(@"Start at login")),
                      .enableTipOfState =
                          makeCheckBox(localized(@"Show the current input source in a floating indicator")),
                      .followWindow = makeCheckBox(localized(@"Let the indicator follow the front window")),
                      .hiddenIconInStatusBar =
                          makeCheckBox(localized(@"Hide the icon in the status bar"),
                                       localized(@"To see this window again, launch Quorvane once more.")),
                      .enableForceEnglishBrowserAddress =
                          makeCheckBox(localized(@"Force English in the address fields of browsers"),
                                       localized(@"Works while Tandrel is running.")),
                      .shortcuts = makeShortcutsTable()};
    NSStackView* column = makeColumn(
        @[
            makeGroupTitle(localized(@"General")), tab.autoStartAtLogin, tab.enableTipOfState,
            tab.followWindow, tab.hiddenIconInStatusBar, tab.enableForceEnglishBrowserAddress
        ],
        8, NSEdgeInsetsMake(16, 20, 8, 20));
    [column setCustomSpacing:betweenGroups afterView:tab.enableForceEnglishBrowserAddress];
    [column addArrangedSubview:makeGroupTitle(localized(@"Shortcuts"))];
    NSView* shortcuts = makeScrollView(tab.shortcuts, 120);
    [column addArrangedSubview:shortcuts];
    stretch(column, shortcuts);
    tab.view = column;
    return tab;
}

} // namespace quorvane
