#pragma once

#include <string>
#include <vector>

#include "platform/StatusBar.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

// Menus of what the program says. By hand, since titles may repeat: the methods of a pop-up button would
// leave only the last of them.

/// A menu whose items do nothing by themselves, as those of pop-up buttons.
NSMenu* _Nonnull makeMenu(const std::vector<std::string>& titles);

NSMenu* _Nonnull makeMenu(Menu items);

} // namespace quorvane
