#pragma once

#include "indicator/InputIndicator.h"
#include "input/CompanionLink.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/Subscription.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Brings the indicator back to the front window whenever the mouse may have moved the one away from the
/// other.
class FollowWindowWatch {
public:
    FollowWindowWatch(GlobalEventMonitor& globalEvents, StandardUserDefaults& standard,
                      const CompanionLink& companion, InputIndicator& indicator)
        : globalEvents_(globalEvents)
        , standard_(standard)
        , companion_(companion)
        , indicator_(indicator) {}

    /// The left button was released. While the companion runs, it reports where the front window is.
    void mouseReleased() {
        if (!companion_.isRunning()) indicator_.checkFollowWindow();
    }

    /// Watches the mouse from now on, while the indicator follows windows: at other times a click wakes
    /// nobody.
    void watchWhileFollowing();

private:
    void settingsChanged();

    GlobalEventMonitor& globalEvents_;
    StandardUserDefaults& standard_;
    const CompanionLink& companion_;
    InputIndicator& indicator_;
    Subscription followWindow_;
    Subscription enableTipOfState_;
    Subscription mouse_; ///< Empty while nothing is followed.
    bool isWatching_ = false;
};

} // namespace quorvane
