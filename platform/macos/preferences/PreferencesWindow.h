#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// The preferences window without what is in it. Closing it hides it.
NSWindow* makePreferencesWindow();

/// Puts the contents into the window and makes it at least as large as they need. It stands where the user
/// has left it, or else in the middle of the screen.
void fillPreferencesWindow(NSWindow* window, NSView* contents);

} // namespace quorvane
