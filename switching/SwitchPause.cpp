#include "switching/SwitchPause.h"

#include <utility>

namespace quorvane {

void SwitchPause::pause(std::optional<double> seconds) {
    stopWaiting();
    isOn_ = true;
    if (seconds) {
        end_ = clock_.secondsSince1970() + *seconds;
        timer_ = runLoop_.scheduledTimer(*seconds, false, [this] { resume(); });
    }
    changed.emit();
}

void SwitchPause::pauseUntil(double time) {
    const double seconds = time - clock_.secondsSince1970();
    if (time == 0)
        pause({});
    else if (seconds > 0)
        pause(seconds);
}

void SwitchPause::resume() {
    stopWaiting();
    if (std::exchange(isOn_, false)) changed.emit();
}

void SwitchPause::stopWaiting() {
    if (timer_) timer_->disarm();
    timer_.reset();
    end_.reset();
}

} // namespace quorvane
