#pragma once

#import "platform/macos/preferences/AppPrefsWindowController.h"

namespace quorvane {

// The tabs that hold nothing but links.
NSView* makeLearnTab(AppPrefsWindowController* target);
NSView* makeFreeAppsTab(AppPrefsWindowController* target);
NSView* makeContactUsTab(AppPrefsWindowController* target);

} // namespace quorvane
