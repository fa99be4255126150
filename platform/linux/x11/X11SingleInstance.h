#pragma once

#include "platform/linux/session/SingleInstance.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The running instance owns a selection of the X server, which ends with its connection: there is nothing to
/// clean up after a crash, and no session bus is needed.
///
/// A request to reopen waits in the server until an instance takes it. One that is still starting, or is just
/// being replaced, misses none.
class X11SingleInstance : public SingleInstance {
public:
    explicit X11SingleInstance(XConnection& x);

    bool becomeTheOne(IfAnotherRuns ifAnotherRuns) override;
    void waitForTheOtherToEnd() override;
    void onReopen(const std::function<void()>& handler) override;

private:
    xcb_window_t owner();
    bool takeRequest();

    XConnection& x_;
    xcb_window_t window_;
    bool isSuccessor_ = false;
    Subscription reopen_;
};

} // namespace quorvane
