#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/InputShortcut.h"

namespace quorvane {

// How menus write key combinations. Main thread only.

/// "⌃⌥⇧⌘", those that are among the flags.
std::string textOfModifiers(std::uint64_t flags);

/// What is printed on the key: a sign, or what it types in the layout that the system takes for key
/// combinations. `space` is the name of the space bar, which has neither.
std::string nameOfKey(std::int64_t keyCode, std::string_view space);

/// "⌥⌘K".
std::string textOf(const InputShortcut& shortcut, std::string_view space);

} // namespace quorvane
