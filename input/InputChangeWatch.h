#pragma once

#include <functional>
#include <utility>

#include "platform/DistributedNotificationCenter.h"
#include "platform/RunLoop.h"

namespace quorvane {

/// Refreshes the indicator once after a burst of input source changes, 0.2 s after the last of them: telling
/// how to show an icon means looking at every pixel of it.
class InputChangeWatch {
public:
    InputChangeWatch(RunLoop& runLoop, std::function<void()> refresh)
        : runLoop_(runLoop)
        , refresh_(std::move(refresh)) {}

    /// The callback of the notification that the selected input source has changed.
    void inputSourceChanged(const DistributedNotification& notification);

private:
    RunLoop& runLoop_;
    std::function<void()> refresh_;
    TimerRef pendingRefresh_;
};

} // namespace quorvane
