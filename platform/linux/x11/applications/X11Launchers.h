#pragma once

#include "platform/linux/applications/LauncherWindows.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Sees launchers' windows that pass the window manager by when they are shown, and all of them when they are
/// hidden. Those that a window manager manages are told by whoever follows its list of windows and the focus.
class X11Launchers {
public:
    X11Launchers(XConnection& x, LauncherWindows& launchers);
    X11Launchers(const X11Launchers&) = delete;
    X11Launchers& operator=(const X11Launchers&) = delete;

private:
    void handle(const xcb_generic_event_t& event);
    void handleShown(xcb_window_t window);

    XConnection& x_;
    LauncherWindows& launchers_;
    Subscription events_;
};

} // namespace quorvane
