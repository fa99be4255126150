#pragma once

#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

// What the keys of a layout of the database give. Each compiles a keymap, which takes some
// milliseconds.

/// Whether its letter keys give Latin letters. False for layouts that are not installed.
bool hasLatinLetters(const XkbLayout& layout);

enum class TypedWith { nothing, shift };

/// Empty for layouts that are not installed.
TypedKeysyms typedKeysymsOf(const XkbLayout& layout, TypedWith with = TypedWith::nothing);

} // namespace quorvane
