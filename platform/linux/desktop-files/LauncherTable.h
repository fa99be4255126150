#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// How a launcher's window gets the keys that are typed.
enum class LauncherWindowKind {
    popUp,  ///< It passes the window manager by and grabs the keyboard: shown is in use. On Wayland, a
            ///< surface above all windows.
    managed ///< The window manager gives it the focus, like any other window.
};

/// A launcher that people use on Linux.
struct KnownLauncher {
    std::string_view name;      ///< As its users know it.
    std::string_view wmClass;   ///< The second part of its window's WM_CLASS, and its program's name.
    std::string_view desktopId; ///< Of its desktop file, its app id on Wayland, and its name on the session
                                ///< bus where it has one.
                                ///< Rules for it are stored under it, whether it has them or not.
    LauncherWindowKind kind;
};

// Null when it is none. The table is in the source file: a new launcher is one more line there.
const KnownLauncher* launcherOfClass(std::string_view wmClass); ///< Or app id; compositors change its case.
const KnownLauncher* launcherOfProgram(std::string_view program);
const KnownLauncher* launcherOfDesktopId(std::string_view desktopId);

/// The desktop ids of all of them.
std::vector<std::string> launcherIdentifiers();

} // namespace quorvane
