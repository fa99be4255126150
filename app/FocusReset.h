#pragma once

#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/Window.h"

namespace quorvane {

/// Takes the keyboard focus away from the application in front for a moment, so that a selection takes effect
/// in it.
class FocusReset {
public:
    FocusReset(Window& window, RunLoop& runLoop, const UserDefaults& standard)
        : window_(window)
        , runLoop_(runLoop)
        , standard_(standard) {}

    /// Orders the window in, and out again: at once, or after as long as the setting `timeWithFocus` says.
    void reset();

private:
    Window& window_;
    RunLoop& runLoop_;
    const UserDefaults& standard_;
    TimerRef orderingOut_; ///< Null before the first that was not at once.
};

} // namespace quorvane
