#pragma once

#include "indicator/InputIndicator.h"
#include "input/CompanionLink.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/OnScreenWindowList.h"
#include "platform/Subscription.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Brings the indicator back to the front window whenever one may have moved away from the other.
class FollowWindowWatch {
public:
    FollowWindowWatch(GlobalEventMonitor& globalEvents, OnScreenWindowList& windowList,
                      StandardUserDefaults& standard, const CompanionLink& companion,
                      InputIndicator& indicator)
        : globalEvents_(globalEvents)
        , windowList_(windowList)
        , standard_(standard)
        , companion_(companion)
        , indicator_(indicator) {}

    /// The left button was released, or a window has moved. While the companion runs, it reports where the
    /// front window is.
    void look() {
        if (!companion_.isRunning()) indicator_.checkFollowWindow();
    }

    /// Looks by itself from now on, while the indicator follows windows: at other times a click wakes nobody.
    void watchWhileFollowing();

private:
    void settingsChanged();

    GlobalEventMonitor& globalEvents_;
    OnScreenWindowList& windowList_;
    StandardUserDefaults& standard_;
    const CompanionLink& companion_;
    InputIndicator& indicator_;
    Subscription followWindow_;
    Subscription enableTipOfState_;
    Subscription mouse_; ///< Empty while nothing is followed, as the next.
    Subscription frontWindow_;
    bool isWatching_ = false;
};

} // namespace quorvane
