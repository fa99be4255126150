#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// The main menu, which an agent never shows: its key equivalents are what copies, pastes and closes in the
/// program's windows. `preferences` gets `openPreferences:`; the menu does not keep it.
NSMenu* makeMainMenu(id preferences);

} // namespace quorvane
