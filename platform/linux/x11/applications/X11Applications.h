#pragma once

#include <set>
#include <span>
#include <vector>

#include "platform/linux/applications/SessionWorkspace.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/applications/WindowInFront.h"
#include "platform/linux/x11/applications/X11WindowOwners.h"

namespace quorvane {

/// Tells a workspace of the windows on an X11 desktop, as its window manager tells of them (EWMH). Which one
/// is in front is learnt from the X server's keyboard focus, as a rule a millisecond before the window
/// manager tells of it (WindowInFront.h).
///
/// Without a window manager nothing happens until one appears.
class X11Applications {
public:
    /// All must outlive this object. What is there already is told at once.
    X11Applications(XConnection& x, X11WindowOwners& owners, SessionWorkspace& workspace);
    X11Applications(const X11Applications&) = delete;
    X11Applications& operator=(const X11Applications&) = delete;

private:
    void readStart();
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& change);
    void handleFocus(const xcb_focus_in_event_t& change);
    void readActiveWindow();
    void readState(xcb_window_t window);
    void readWithdrawal(xcb_window_t window);
    void identifyAgain(xcb_window_t window);
    void closed(xcb_window_t window, bool isDestroyed);
    void adopt(std::span<const xcb_window_t> windows);
    void shown(xcb_window_t window);
    bool isHidden(const std::vector<std::uint32_t>& states) const;

    XConnection& x_;
    X11WindowOwners& owners_;
    SessionWorkspace& workspace_;
    WindowInFront inFront_;
    std::set<xcb_window_t> unshown_; ///< Managed ones, it is said, but nothing else tells so yet.
    Subscription events_;
};

} // namespace quorvane
