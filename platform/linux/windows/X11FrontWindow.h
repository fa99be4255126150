#pragma once

#include <optional>

#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/applications/X11Workspace.h"
#include "platform/linux/windows/X11Screens.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Watches the bounds of the active window, by the events that come for every known window anyway. Nothing
/// wakes the program while that window stands still.
class X11FrontWindow {
public:
    X11FrontWindow(XConnection& x, const X11Workspace& workspace, const X11Screens& screens);
    X11FrontWindow(const X11FrontWindow&) = delete;
    X11FrontWindow& operator=(const X11FrontWindow&) = delete;

    /// Shortly after the active window was moved, resized, shown, hidden or destroyed, and no more often than
    /// every 30 ms: where the window that is active by then has its contents, in points, origin at the
    /// top-left of the primary screen, as in the window list. None when it cannot be seen, or there is no
    /// active window any more. Not told when only another window has become active.
    Signal<const std::optional<Rect>&> changed;

private:
    void handle(const xcb_generic_event_t& event);
    void tell();

    XConnection& x_;
    const X11Workspace& workspace_;
    const X11Screens& screens_;
    xcb_window_t followed_;                   ///< The last active window, also once it is destroyed.
    std::optional<std::optional<Rect>> told_; ///< Of that window, if anything.
    QTimer collecting_;
    Subscription events_;
};

} // namespace quorvane
