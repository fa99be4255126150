#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/InputShortcut.h"

namespace quorvane {

// Key combinations as people write them: "Ctrl+Alt+R". A key is called by what is printed on it on an
// American keyboard, but it is the position that counts.

/// None for what is no combination that a hot key can have. Capitals do not matter, nor the order of the
/// modifiers.
std::optional<InputShortcut> shortcutOfText(std::string_view text);

/// A position without a name is "#" and its number, which is understood as well.
std::string textOfShortcut(const InputShortcut& shortcut);

} // namespace quorvane
