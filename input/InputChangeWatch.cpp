#include "input/InputChangeWatch.h"

#include "platform/TextInputSources.h"

namespace quorvane {
namespace {

constexpr double refreshDelay = 0.2; // seconds

} // namespace

void InputChangeWatch::inputSourceChanged(const DistributedNotification& notification) {
    if (notification.name != selectedKeyboardInputSourceChangedNotification) return;
    if (pendingRefresh_) pendingRefresh_->disarm();
    pendingRefresh_ = runLoop_.scheduledTimer(refreshDelay, false, refresh_);
}

} // namespace quorvane
