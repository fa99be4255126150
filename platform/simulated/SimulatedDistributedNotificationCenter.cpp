#include "platform/simulated/SimulatedDistributedNotificationCenter.h"

namespace quorvane {

Subscription SimulatedDistributedNotificationCenter::addObserver(
    std::string_view name, std::function<void(const DistributedNotification&)> handler) {
    return delivered_.connect([name = std::string(name),
                               handler = std::move(handler)](const DistributedNotification& notification) {
        if (notification.name == name) handler(notification);
    });
}

void SimulatedDistributedNotificationCenter::post(const DistributedNotification& notification) {
    posted_.push_back(notification);
    postFromOutside(notification);
}

void SimulatedDistributedNotificationCenter::postFromOutside(const DistributedNotification& notification) {
    if (lost_) return;
    runLoop_.dispatchAfter(0, [this, notification] { delivered_.emit(notification); });
}

} // namespace quorvane
