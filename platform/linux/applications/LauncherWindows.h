#pragma once

#include <functional>
#include <map>
#include <vector>

#include "platform/Signal.h"
#include "platform/Workspace.h"
#include "platform/linux/applications/WindowId.h"
#include "platform/linux/desktop-files/LauncherTable.h"

namespace quorvane {

/// The windows of launchers (see LauncherTable.h), and which of them the user types into. To the program they
/// are windows above the application in front, which stays there.
class LauncherWindows {
public:
    LauncherWindows() = default;
    LauncherWindows(const LauncherWindows&) = delete;
    LauncherWindows& operator=(const LauncherWindows&) = delete;

    /// A launcher's window has been opened, also in another one's place, or closed: the following answer
    /// differently now.
    Subscription onChange(std::function<void()> handler) { return changed_.connect(std::move(handler)); }

    /// Whether the user types into this window, and a launcher it is.
    bool isOpen(WindowId window) const { return window != noWindow && window == open_; }

    WindowId openWindow() const { return open_; } ///< None when no launcher is open.
    const KnownLauncher* openLauncher() const;    ///< Null when none is.

    /// The launchers with a window.
    std::vector<RunningApplication> running() const;

    bool contains(WindowId window) const { return windows_.contains(window); }

    // Windows that get the focus like any other.
    void add(WindowId window, const KnownLauncher& launcher);
    void focusMovedTo(WindowId window); ///< Of whichever application, or none.

    /// One that has the keys as long as it is shown, whoever has the focus meanwhile.
    void popUpShown(WindowId window, const KnownLauncher& launcher);

    void hidden(WindowId window);
    void destroyed(WindowId window);

private:
    struct Window {
        const KnownLauncher* launcher;
        bool isPopUp; ///< Most launchers that are pop-ups can also be told to be ordinary windows.
    };

    void open(WindowId window);

    std::map<WindowId, Window> windows_;
    WindowId focused_ = noWindow; ///< If it is a launcher's.
    WindowId open_ = noWindow;
    Signal<> changed_;
};

} // namespace quorvane
