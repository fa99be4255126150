#pragma once

#include <optional>

#include "platform/RunLoop.h"
#include "platform/Signal.h"
#include "platform/WallClock.h"

namespace quorvane {

/// The user wants no automatic switch for a while. It is stored nowhere, and so ends with the session.
class SwitchPause {
public:
    SwitchPause(RunLoop& runLoop, const WallClock& clock) : runLoop_(runLoop), clock_(clock) {}
    ~SwitchPause() { stopWaiting(); }
    SwitchPause(const SwitchPause&) = delete;
    SwitchPause& operator=(const SwitchPause&) = delete;

    /// That many seconds from now on, whatever was said before; with none, until somebody resumes.
    void pause(std::optional<double> seconds);
    /// Until then, in seconds since 1970, if that is still to come; 0: until somebody resumes.
    void pauseUntil(double time);

    void resume();

    bool isOn() const { return isOn_; }

    /// When it ends by itself, in seconds since 1970.
    std::optional<double> end() const { return end_; }

    Signal<> changed; ///< It began, it ended, or it ends at another time.

private:
    void stopWaiting();

    RunLoop& runLoop_;
    const WallClock& clock_;
    bool isOn_ = false;
    std::optional<double> end_;
    TimerRef timer_;
};

} // namespace quorvane
