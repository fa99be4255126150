#import "platform/macos/foundation/MacDistributedNotifications.h"

#include <utility>

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

MacDistributedNotifications::MacDistributedNotifications()
    : receiver_(
          [[QuorvaneReceiver alloc] initWithHandler:[this](id notification) { received(notification); }]) {}

MacDistributedNotifications::~MacDistributedNotifications() {
    [NSDistributedNotificationCenter.defaultCenter removeObserver:receiver_];
}

Subscription
MacDistributedNotifications::addObserver(std::string_view name,
                                         std::function<void(const DistributedNotification&)> handler) {
    NSString* observedName = toNSString(name);
    // Without a name the system would deliver every notification there is.
    if (!observedName) return {};
    const auto [entry, isNew] = observed_.try_emplace(std::string(name));
    if (isNew) {
        [NSDistributedNotificationCenter.defaultCenter
                   addObserver:receiver_
                      selector:@selector(receive:)
                          name:observedName
                        object:nil
            suspensionBehavior:NSNotificationSuspensionBehaviorDeliverImmediately];
    }
    return entry->second.connect(std::move(handler));
}

void MacDistributedNotifications::post(const DistributedNotification& notification) {
    NSString* name = toNSString(notification.name);
    if (!name) return;
    NSDictionary* userInfo = notification.userInfo.dictionary() ? toNSObject(notification.userInfo) : nil;
    [NSDistributedNotificationCenter.defaultCenter
        postNotificationName:name
                      object:nil
                    userInfo:userInfo
                     options:NSDistributedNotificationDeliverImmediately |
                             NSDistributedNotificationPostToAllSessions];
}

void MacDistributedNotifications::received(NSNotification* notification) {
    const auto observers = observed_.find(fromNSString(notification.name));
    if (observers == observed_.end()) return;
    auto userInfo = fromNSObject(notification.userInfo);
    if (const auto* entries = userInfo.dictionary(); entries && entries->empty()) userInfo = {};
    observers->second.emit({observers->first, std::move(userInfo)});
}

} // namespace quorvane
