#pragma once

#include <functional>
#include <memory>

namespace quorvane {

/// A timer that has been scheduled. Letting go of it does not stop it.
class Timer {
public:
    virtual ~Timer() = default;

    /// Puts the fire date into the distant future: the timer does not fire any more.
    virtual void disarm() = 0;
};

using TimerRef = std::shared_ptr<Timer>;

/// The one thread's loop. Every handler, timer and block runs on it, one after another.
class RunLoop {
public:
    using Block = std::function<void()>;

    virtual ~RunLoop() = default;

    /// Fires once, or again and again, that many seconds apart.
    virtual TimerRef scheduledTimer(double seconds, bool repeats, Block block) = 0;

    /// Runs the block that many seconds later; with 0, as soon as the handler now running has returned.
    virtual void dispatchAfter(double seconds, Block block) = 0;

    /// Blocks the thread. For the one short wait that must not let anything else happen.
    virtual void sleep(double seconds) = 0;
};

} // namespace quorvane
