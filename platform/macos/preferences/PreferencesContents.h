#pragma once

#import "platform/macos/preferences/AppPrefsWindowController.h"
#import "platform/macos/preferences/PreferenceTab.h"
#import "platform/macos/preferences/RulesTab.h"
#import "platform/macos/preferences/TabHeader.h"

namespace quorvane {

/// Everything in the preferences window. The target, which is told what the user does, is not kept alive.
struct PreferencesContents {
    explicit PreferencesContents(AppPrefsWindowController* target);

    MacTabHeader Rules1, Preference1, Learn1, FreeApps1, Contactus1;
    RulesTab rules;
    PreferenceTab preference;
    NSTabView* tabView;
    NSTextField* version;
    NSTextField* switchTimes;
    NSView* view; ///< All of it, laid out by constraints.
};

} // namespace quorvane
