#include "app/FocusReset.h"

#include <algorithm>

#include "settings/Keys.h"

namespace quorvane {
namespace {

constexpr double longest = 1; // second: what is typed meanwhile is lost

} // namespace

void FocusReset::reset() {
    window_.makeKeyAndOrderFront();
    if (orderingOut_) orderingOut_->disarm();
    const auto seconds = std::min(standard_.objectForKey(key::timeWithFocus).realValue(), longest);
    if (seconds > 0) // which what is no number is not
        orderingOut_ = runLoop_.scheduledTimer(seconds, false, [this] { window_.orderOut(); });
    else
        window_.orderOut();
}

} // namespace quorvane
