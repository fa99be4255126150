#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/DistributedNotificationCenter.h"
#include "platform/Signal.h"
#import "platform/macos/foundation/Receiver.h"

namespace quorvane {

/// The system's distributed notifications, delivered on the main thread also while another application is
/// active. What was written to the user's defaults before needs no synchronizing: every write goes to the
/// system's own service when it is made, and that is whom other programs ask.
class MacDistributedNotifications : public DistributedNotificationCenter {
public:
    MacDistributedNotifications();
    MacDistributedNotifications(const MacDistributedNotifications&) = delete;
    MacDistributedNotifications& operator=(const MacDistributedNotifications&) = delete;
    ~MacDistributedNotifications() override;

    Subscription addObserver(std::string_view name,
                             std::function<void(const DistributedNotification&)> handler) override;
    void post(const DistributedNotification& notification) override;

private:
    void received(NSNotification* notification);

    std::map<std::string, Signal<const DistributedNotification&>, std::less<>> observed_; // by name
    QuorvaneReceiver* receiver_; // Only with one, immediate delivery can be asked for.
};

} // namespace quorvane
