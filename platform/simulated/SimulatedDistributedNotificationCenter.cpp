#include "platform/simulated/SimulatedDistributedNotificationCenter.h"

#include <functional>
#include <utility>

namespace quorvane {

Subscription SimulatedDistributedNotificationCenter::addObserver(
    std::string_view name, std::function<void(const DistributedNotification&)> handler) {
    journal_.add("observe ", name);
    return delivered_.connect([name = std::string(name),
                               handler = std::move(handler)](const DistributedNotification& notification) {
        if (notification.name == name) handler(notification);
    });
}

void SimulatedDistributedNotificationCenter::post(const DistributedNotification& notification) {
    const auto& userInfo = notification.userInfo;
    journal_.add("post ", notification.name, userInfo.isNothing() ? "" : " " + textOf(userInfo));
    postFromOutside(notification);
}

void SimulatedDistributedNotificationCenter::postFromOutside(const DistributedNotification& notification) {
    if (lost_) return;
    runLoop_.dispatchAfter(0, [this, notification] { delivered_.emit(notification); });
}

} // namespace quorvane
