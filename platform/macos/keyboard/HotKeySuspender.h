#pragma once

#include <functional>

#include "platform/Subscription.h"

namespace quorvane {

/// While what it returns is kept, no hot key of this program fires, and none is taken from other programs.
using HotKeySuspender = std::function<Subscription()>;

} // namespace quorvane
