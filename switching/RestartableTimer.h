#pragma once

#include <utility>

#include "platform/RunLoop.h"

namespace quorvane {

/// Fires at every interval, counted from the last restart, until it is disarmed. Whatever its block uses must
/// live until then.
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
