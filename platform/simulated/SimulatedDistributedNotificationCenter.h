#pragma once

#include <vector>

#include "platform/DistributedNotificationCenter.h"
#include "platform/RunLoop.h"
#include "platform/Signal.h"

namespace quorvane {

class SimulatedDistributedNotificationCenter : public DistributedNotificationCenter {
public:
    explicit SimulatedDistributedNotificationCenter(RunLoop& runLoop) : runLoop_(runLoop) {}

    Subscription addObserver(std::string_view name,
                             std::function<void(const DistributedNotification&)> handler) override;
    void post(const DistributedNotification& notification) override;

    /// A notification of another program, or of the desktop itself.
    void postFromOutside(const DistributedNotification& notification);

    /// What this program posted, oldest first.
    const std::vector<DistributedNotification>& posted() const { return posted_; }
    void forgetPosted() { posted_.clear(); }

    /// From now on, nothing arrives anywhere, as when the session bus is gone.
    void lose() { lost_ = true; }

private:
    RunLoop& runLoop_;
    Signal<const DistributedNotification&> delivered_;
    std::vector<DistributedNotification> posted_;
    bool lost_ = false;
};

} // namespace quorvane
