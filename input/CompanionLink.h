#pragma once

#include <string_view>

#include "platform/DistributedNotificationCenter.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace quorvane {

/// The companion application: while it runs, it makes the switches and this program only asks for them.
class CompanionLink {
public:
    CompanionLink(const Workspace& workspace, UserDefaultsStores& stores,
                  DistributedNotificationCenter& notifications)
        : workspace_(workspace)
        , stores_(stores)
        , notifications_(notifications) {}

    /// Asked afresh at each use: the companion comes and goes as it likes.
    bool isRunning() const;

    /// Leaves the input source's id in the shared suite and tells the companion to fetch it there. Nothing
    /// answers, and nobody switches if the companion does not. While the suite cannot be written, the request
    /// waits: the companion would find an older one there.
    void askToSwitchInput(std::string_view inputSourceID);

    /// A request that still waits is not wanted any more.
    void dropRequest() { waitingRequest_.end(); }

private:
    const Workspace& workspace_;
    UserDefaultsStores& stores_;
    DistributedNotificationCenter& notifications_;
    Subscription waitingRequest_;
};

} // namespace quorvane
