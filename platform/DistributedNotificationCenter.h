#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"
#include "platform/Subscription.h"

namespace quorvane {

struct DistributedNotification {
    std::string name;
    PropertyList userInfo; ///< A dictionary, or nothing.
};

/// Notifications between the programs of one user's session. Best effort: a notification that nobody
/// observes, or that is posted while there is no session bus, is lost.
class DistributedNotificationCenter {
public:
    virtual ~DistributedNotificationCenter() = default;

    /// Delivered immediately, from the run loop, whoever posted it and whether this program is active or not.
    virtual Subscription addObserver(std::string_view name,
                                     std::function<void(const DistributedNotification&)> handler) = 0;

    /// Posted to all sessions of the user, to be delivered immediately. Everything written to the user's
    /// defaults before is visible to whoever receives it.
    virtual void post(const DistributedNotification& notification) = 0;
};

} // namespace quorvane
