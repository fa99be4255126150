#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// How a launcher's window gets the keys that are typed.
enum class LauncherWindowKind {
    popUp,  ///< It passes the window manager by and grabs the keyboard: shown is in use.
    managed ///< The window manager gives it the focus, like any other window.
};

/// A launcher that people use on Linux.
struct KnownLauncher {
    std::string_view name;      ///< As its users know it.
    std::string_view wmClass;   ///< The second part of its window's WM_CLASS.
    std::string_view desktopId; ///< Of its desktop file, and its name on the session bus where it has one.
    LauncherWindowKind kind;

    /// The program knows launchers by the identifiers of those it was made for: this is one of that family,
    /// and rules for the launcher are stored under it.
    std::string bundleIdentifier() const;

    /// What its windows' owner is called, for the same reason.
    std::string ownerName() const;
};

// Null when it is none. The table is in the source file: a new launcher is one more line there.
const KnownLauncher* launcherOfClass(std::string_view wmClass);
const KnownLauncher* launcherOfDesktopId(std::string_view desktopId);
const KnownLauncher* launcherOfBundleIdentifier(std::string_view bundleIdentifier);

} // namespace quorvane
