#pragma once

#include <cstdint>
#include <optional>

namespace quorvane {

// The program's key codes and the X server's keycodes both number positions on the keyboard, whatever is
// printed on them. These are the positions of ANSI, ISO and JIS keyboards, the keypad and the volume keys.
// Modifier keys and Caps Lock are not among them: they are no keys to press with modifiers.

/// None when X has no such key, or it is a modifier key.
std::optional<std::uint8_t> xKeycodeOf(std::int64_t keyCode);

/// None when the program has no code for this key, or it is a modifier key.
std::optional<std::int64_t> keyCodeOf(std::uint8_t xKeycode);

} // namespace quorvane
