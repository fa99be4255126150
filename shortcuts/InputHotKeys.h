#pragma once

#include <string>

#include "platform/UserDefaults.h"
#include "shortcuts/PTHotKeyCenter.h"

namespace quorvane {

/// Registers a hot key for every recorded shortcut. One that is refused is passed over, and one whose input
/// source is not there now is registered all the same: it may come back.
void registerAllHotKey(const UserDefaults& standard, PTHotKeyCenter& center, const PTHotKey::Action& action);

/// Makes the hot key of one input source what its shortcut is now.
void refreshHotKey(const UserDefaults& standard, PTHotKeyCenter& center, const std::string& inputSourceID,
                   const PTHotKey::Action& action);

} // namespace quorvane
