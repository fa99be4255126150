#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// What a window says about the application it belongs to. Empty where it says nothing.
struct WindowFacts {
    std::string gtkApplicationId;
    std::string kdeDesktopFile; ///< An id, or the name or path of the file.
    std::string wmClass;
    std::string wmInstance;
    int pid = 0;
    bool isPartOfDesktop = false; ///< A panel or the desktop's background, which no user calls a program.
};

/// Asks all the windows in one round trip. None for a window that has vanished.
std::vector<std::optional<WindowFacts>> factsOf(XConnection& x, std::span<const xcb_window_t> windows);

} // namespace quorvane
