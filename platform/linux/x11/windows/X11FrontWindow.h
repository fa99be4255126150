#pragma once

#include <QTimer>

#include "platform/Signal.h"
#include "platform/linux/applications/SessionWorkspace.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/windows/WindowStack.h"

namespace quorvane {

/// Notices that windows have moved, by the events that come anyway. Nothing wakes the program while they
/// stand still.
class X11FrontWindow {
public:
    X11FrontWindow(XConnection& x, const SessionWorkspace& workspace, WindowStack& stack);
    X11FrontWindow(const X11FrontWindow&) = delete;
    X11FrontWindow& operator=(const X11FrontWindow&) = delete;

    /// Shortly after the active window was moved, resized, shown, hidden or destroyed, or the stack has
    /// changed, and no more often than every 30 ms. Not told when only another window has become active.
    Signal<> changed;

private:
    void handle(const xcb_generic_event_t& event);
    void collect();

    XConnection& x_;
    const SessionWorkspace& workspace_;
    xcb_window_t followed_; ///< The last active window, also once it is destroyed.
    QTimer collecting_;
    Subscription events_;
    Subscription stackChanges_;
};

} // namespace quorvane
