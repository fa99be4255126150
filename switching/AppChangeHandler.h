#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "switching/InputDecision.h"

namespace quorvane {

/// Follows the application in front and has its input source decided, once each time another one comes there.
class AppChangeHandler {
public:
    /// `screenChangeDelay`: how long the decision waits when the keyboard focus moved to another screen, in
    /// seconds.
    AppChangeHandler(const Screens& screens, RunLoop& runLoop, InputDecision& decision,
                     double screenChangeDelay)
        : screens_(screens)
        , runLoop_(runLoop)
        , decision_(decision)
        , screenChangeDelay_(screenChangeDelay) {}

    /// An application came to the front, or was unhidden there. One without a bundle identifier equals no
    /// other, not even itself.
    void appChanged(const RunningApplication& application);

    /// Decides for the application that is the last one by now: it may be another than when the wait began.
    void delayChangeInputToAppID();

private:
    const Screens& screens_;
    RunLoop& runLoop_;
    InputDecision& decision_;
    double screenChangeDelay_;

    std::optional<std::string> lastBundleID_;
    std::int32_t lastScreenNumber_ =
        0; // no screen has it, so the first activation counts as a change of screen
};

} // namespace quorvane
