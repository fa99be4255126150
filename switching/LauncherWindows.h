#pragma once

#include "platform/OnScreenWindowList.h"

namespace quorvane {

// What the launchers' windows look like in the window list. The first match from the front is the one.

/// Alfred's window, on the layer that it alone uses.
bool isAlfredWindow(const WindowDescription& window);

/// Spotlight's search window; its item in the menu bar is a window too, but a narrow one.
bool isSpotlightWindow(const WindowDescription& window);

} // namespace quorvane
