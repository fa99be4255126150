#pragma once

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {

/// Whether the layout's letter keys give Latin letters. False for layouts that are not installed. Compiles a
/// keymap, which takes some milliseconds.
bool hasLatinLetters(const XkbLayout& layout);

} // namespace quorvane
