#pragma once

#include <cstdint>
#include <optional>

#include "platform/HotKeys.h"

namespace quorvane {

/// A key combination as Qt, and so KDE's service for global shortcuts, numbers it: the key by what it types,
/// and the modifiers. `keysym` is what the key types without modifiers, `shiftedKeysym` with Shift. None when
/// Qt has no number for the key.
std::optional<int> qtKeyOf(const KeyCombination& combination, std::uint32_t keysym,
                           std::uint32_t shiftedKeysym);

} // namespace quorvane
