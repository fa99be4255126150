#pragma once

#include <functional>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Makes sure that the program runs once on a display. The running instance owns a selection of the X server,
/// which ends with its connection: there is nothing to clean up after a crash, and no session bus is needed.
class SingleInstance {
public:
    explicit SingleInstance(XConnection& x);

    /// True when this process is the one instance from now on, false when another one is.
    bool becomeTheOne();

    /// Tells the instance that runs that the user has launched the program again.
    void askTheOtherToReopen();

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
