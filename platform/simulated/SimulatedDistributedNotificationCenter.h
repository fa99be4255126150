#pragma once

#include <functional>

#include "platform/DistributedNotificationCenter.h"
#include "platform/RunLoop.h"
#include "platform/Signal.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

class SimulatedDistributedNotificationCenter : public DistributedNotificationCenter {
public:
    SimulatedDistributedNotificationCenter(Journal& journal, RunLoop& runLoop)
        : journal_(journal)
        , runLoop_(runLoop) {}

    Subscription addObserver(std::string_view name,
                             std::function<void(const DistributedNotification&)> handler) override;
    void post(const DistributedNotification& notification) override;

    /// A notification of another program, or of the desktop itself.
    void postFromOutside(const DistributedNotification& notification);

    /// From now on, nothing arrives anywhere, as when the session bus is gone.
    void lose() { lost_ = true; }

private:
    Journal& journal_;
    RunLoop& runLoop_;
    Signal<const DistributedNotification&> delivered_;
    bool lost_ = false;
};

} // namespace quorvane
