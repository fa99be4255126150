#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "indicator/InputIndicator.h"
#include "input/CompanionLink.h"
#include "input/OpenLaunchers.h"
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
    AppChangeHandler(const Screens& screens, RunLoop& runLoop, const CompanionLink& companion,
                     OpenLaunchers& openLaunchers, InputDecision& decision, InputIndicator& indicator,
                     double screenChangeDelay)
        : screens_(screens)
        , runLoop_(runLoop)
        , companion_(companion)
        , openLaunchers_(openLaunchers)
        , decision_(decision)
        , indicator_(indicator)
        , screenChangeDelay_(screenChangeDelay) {}

    /// An application came to the front, or was unhidden, which closes every launcher. One without a bundle
    /// identifier equals no other, not even itself.
    void appChanged(const RunningApplication& application);

    /// Nobody is in front any more: whoever comes there next does so anew, also the one who left.
    void frontLeft() { lastBundleID_.reset(); }

    /// Decides for the application that is the last one by now: it may be another than when the wait began.
    void delayChangeInputToAppID();

    /// The application whose coming to the front was last handled; none before the first one, and while
    /// nobody is in front.
    const std::optional<std::string>& lastBundleID() const { return lastBundleID_; }

    /// For a launcher that opens before any application came to the front.
    void setLastBundleIDIfNone(std::string bundleID) {
        if (!lastBundleID_) lastBundleID_ = std::move(bundleID);
    }

private:
    const Screens& screens_;
    RunLoop& runLoop_;
    const CompanionLink& companion_;
    OpenLaunchers& openLaunchers_;
    InputDecision& decision_;
    InputIndicator& indicator_;
    double screenChangeDelay_;

    std::optional<std::string> lastBundleID_;
    std::int32_t lastScreenNumber_ =
        0; // no screen has it, so the first activation counts as a change of screen
};

} // namespace quorvane
