#include "indicator/FollowWindowWatch.h"

#include <utility>

#include "settings/Keys.h"

namespace quorvane {

void FollowWindowWatch::watchWhileFollowing() {
    followWindow_ = standard_.addObserver(key::followWindow, [this](auto /*key*/) { settingsChanged(); });
    enableTipOfState_ =
        standard_.addObserver(key::enableTipOfState, [this](auto /*key*/) { settingsChanged(); });
    settingsChanged();
}

void FollowWindowWatch::settingsChanged() {
    const bool isFollowing = indicator_.isFollowing();
    if (std::exchange(isWatching_, isFollowing) == isFollowing) return;
    mouse_ = isFollowing ? globalEvents_.addGlobalMonitor(eventMask(EventType::leftMouseUp),
                                                          [this](const Event&) { mouseReleased(); })
                         : Subscription();
}

} // namespace quorvane
