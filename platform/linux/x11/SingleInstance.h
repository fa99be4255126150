#pragma once

#include <functional>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Makes sure that the program runs once on a display. The running instance owns a selection of the X server,
/// which ends with its connection: there is nothing to clean up after a crash, and no session bus is needed.
class SingleInstance {
public:
    explicit SingleInstance(XConnection& x);

    /// True when this process is the one instance from now on. False when another one is: it has then been
    /// asked to reopen.
    bool becomeTheOne();

    /// Waits, a few seconds at most, until the instance that runs has ended. For a relaunch, where the old
    /// instance is on its way out.
    void waitForTheOtherToEnd();

    /// Another process was launched, found this one running and left.
    void onReopen(std::function<void()> handler);

private:
    xcb_window_t owner();

    XConnection& x_;
    xcb_window_t window_;
    Subscription reopen_;
};

} // namespace quorvane
