#pragma once

#include <QPalette>

namespace quorvane {

/// Dark colours for Qt's own style, every role of it. Text stands out from its ground by at least 7 to 1,
/// what is disabled or a placeholder by at least 3 to 1.
QPalette darkPalette();

/// Qt's style outlines a check box in a darker shade of the window's colour, which cannot be seen on a dark
/// ground.
QPalette darkCheckBoxPalette();

} // namespace quorvane
