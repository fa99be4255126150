#pragma once

#include <string>

namespace quorvane {

/// What a window, or its session, says about the application it belongs to. Empty where nothing is said.
struct WindowFacts {
    std::string gtkApplicationId;
    std::string kdeDesktopFile; ///< An id, or the name or path of the file.
    std::string desktopFile;    ///< The same, as a Wayland compositor tells it.
    std::string wmClass;        ///< Of a window of Wayland, its app id.
    std::string wmInstance;
    int pid = 0;
    bool isPartOfDesktop = false; ///< A panel or the desktop's background, which no user calls a program.

    bool operator==(const WindowFacts&) const = default;
};

} // namespace quorvane
