#pragma once

#include "platform/RunLoop.h"

namespace quorvane {

/// Fires again and again, one interval after it was last restarted for the first time, until it is disarmed.
/// Must outlive the run loop's work, or be disarmed.
class RestartableTimer {
public:
    /// `interval` in seconds.
    RestartableTimer(RunLoop& runLoop, double interval, RunLoop::Block block)
        : runLoop_(runLoop)
        , interval_(interval)
        , block_(std::move(block)) {}

    void restart() {
        disarm();
        timer_ = runLoop_.scheduledTimer(interval_, true, block_);
    }

    void disarm() {
        if (timer_) timer_->disarm();
    }

private:
    RunLoop& runLoop_;
    double interval_;
    RunLoop::Block block_;
    TimerRef timer_;
};

} // namespace quorvane
