#pragma once

#import "platform/macos/preferences/AppPrefsWindowController.h"

namespace quorvane {

/// The tab of the rules: for applications, and below for locations.
struct RulesTab {
    NSView* view;
    NSTableView* applications;
    NSButton* removeApplication;
    NSPopUpButton* defaultInput;
    NSTableView* locations;
    NSView* noLocations; ///< What stands in the table of locations while it is empty.
    NSButton* removeLocation;
    NSButton* setUp;
};

RulesTab makeRulesTab(AppPrefsWindowController* target);

} // namespace quorvane
