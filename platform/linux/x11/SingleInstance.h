#pragma once

#include <functional>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Makes sure that the program runs once on a display. The running instance owns a selection of the X server,
/// which ends with its connection: there is nothing to clean up after a crash, and no session bus is needed.
///
/// A request to reopen waits in the server until an instance takes it. One that is still starting, or is just
/// being replaced, misses none.
class SingleInstance {
public:
    explicit SingleInstance(XConnection& x);

    enum class IfAnotherRuns { leaveIt, askItToReopen };

    /// True when this process is the one instance from now on, false when another one is.
    bool becomeTheOne(IfAnotherRuns ifAnotherRuns);

    /// Waits, a few seconds at most, until the instance that runs has ended. For a relaunch, where the old
    /// instance is on its way out: what that one was still asked for is this one's to do.
    void waitForTheOtherToEnd();

    /// The user has launched the program again: told now if that was so before, and from now on.
    void onReopen(const std::function<void()>& handler);

private:
    xcb_window_t owner();
    bool takeRequest();

    XConnection& x_;
    xcb_window_t window_;
    bool isSuccessor_ = false;
    Subscription reopen_;
};

} // namespace quorvane
