#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// The tab of the general settings and the shortcuts.
struct PreferenceTab {
    NSView* view;
    NSButton* autoStartAtLogin;
    NSButton* enableTipOfState;
    NSButton* followWindow;
    NSButton* hiddenIconInStatusBar;
    NSButton* enableForceEnglishBrowserAddress;
    NSTableView* shortcuts;
};

PreferenceTab makePreferenceTab();

} // namespace quorvane
