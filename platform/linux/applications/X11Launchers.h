#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/Signal.h"
#include "platform/Workspace.h"
#include "platform/linux/desktop-files/LauncherTable.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The windows of launchers (see LauncherTable.h), and which of them the user types into. To the program they
/// are windows above the application in front, which stays there.
///
/// Pop-up windows are seen here when they are shown. Those that a window manager manages are told by whoever
/// follows its list of windows and the focus.
class X11Launchers {
public:
    explicit X11Launchers(XConnection& x);
    X11Launchers(const X11Launchers&) = delete;
    X11Launchers& operator=(const X11Launchers&) = delete;

    /// A launcher's window has been opened, also in another one's place, or closed: the following answer
    /// differently now.
    Subscription onChange(std::function<void()> handler) { return changed_.connect(std::move(handler)); }

    /// Whether the user types into this window, and a launcher it is.
    bool isOpen(xcb_window_t window) const { return window != XCB_WINDOW_NONE && window == open_; }

    xcb_window_t openWindow() const { return open_; } ///< None (0) when no launcher is open.
    const KnownLauncher* openLauncher() const;        ///< Null when none is.

    /// The launchers with a window.
    std::vector<RunningApplication> running() const;

    // For managed windows.
    void add(xcb_window_t window, const KnownLauncher& launcher);
    bool contains(xcb_window_t window) const { return windows_.contains(window); }
    void focusMovedTo(xcb_window_t window); ///< Of whichever application, or none.

private:
    struct Window {
        const KnownLauncher* launcher;
        bool isManaged; ///< Most launchers that are pop-ups can also be told to be managed.
    };

    void handle(const xcb_generic_event_t& event);
    void handleShown(xcb_window_t window);
    void open(xcb_window_t window);
    void close(xcb_window_t window);

    XConnection& x_;
    std::map<xcb_window_t, Window> windows_;
    xcb_window_t focused_ = XCB_WINDOW_NONE; ///< If it is a launcher's.
    xcb_window_t open_ = XCB_WINDOW_NONE;
    Signal<> changed_;
    Subscription events_;
};

} // namespace quorvane
