#import "platform/macos/preferences/PreferenceTab.h"

#import "platform/macos/foundation/Localized.h"
#import "platform/macos/preferences/MakeTable.h"
#import "platform/macos/preferences/Parts.h"

namespace quorvane {
namespace {

constexpr CGFloat iconWidth = 44;
constexpr CGFloat nameWidth = 160;
constexpr CGFloat recorderWidth = 200;
constexpr CGFloat betweenGroups = 16;

PreferenceTab::CheckBox makeCheckBox(NSString* title, NSString* toolTip, const char* defaultsKey) {
    NSButton* button = [NSButton checkboxWithTitle:title target:nil action:nil];
    button.translatesAutoresizingMaskIntoConstraints = NO;
    button.toolTip = toolTip;
    return {button, defaultsKey};
}

std::vector<PreferenceTab::CheckBox> makeCheckBoxes() {
    return {makeCheckBox(localized(@"Start at login"), nil, "autoStartAtLogin"),
            makeCheckBox(localized(@"Show the current input source in a floating indicator"), nil,
                         "enableTipOfState"),
            makeCheckBox(localized(@"Let the indicator follow the front window"), nil, "followWindow"),
            makeCheckBox(localized(@"Hide the icon in the status bar"),
                         localized(@"To see this window again, launch Quorvane once more."),
                         "hiddenIconInStatusBar"),
            makeCheckBox(localized(@"Force English in the address fields of browsers"),
                         localized(@"Works while Tandrel is running."), "enableForceEnglishBrowserAddress")};
}

NSTableView* makeShortcutsTable() {
    return makeTable(localized(@"Shortcuts"), {{@"Icon", @"", iconWidth},
                                               {@"Input", localized(@"Input Source"), nameWidth},
                                               {@"ShortCut", localized(@"Shortcut"), recorderWidth}});
}

} // namespace

PreferenceTab makePreferenceTab() {
    PreferenceTab tab{.view = nil, .checkBoxes = makeCheckBoxes(), .shortcuts = makeShortcutsTable()};
    NSStackView* column =
        makeColumn(@[ makeGroupTitle(localized(@"General")) ], 8, NSEdgeInsetsMake(16, 20, 8, 20));
    for (const auto& checkBox : tab.checkBoxes)
        [column addArrangedSubview:checkBox.button];
    [column setCustomSpacing:betweenGroups afterView:tab.checkBoxes.back().button];
    [column addArrangedSubview:makeGroupTitle(localized(@"Shortcuts"))];
    NSView* shortcuts = makeScrollView(tab.shortcuts, 120);
    [column addArrangedSubview:shortcuts];
    stretch(column, shortcuts);
    tab.view = column;
    return tab;
}

} // namespace quorvane
