#pragma once

#include <cstdint>
#include <limits>

#include "platform/UserDefaults.h"
#include "settings/Keys.h"

namespace quorvane {

/// Adds 1 to the number of input sources this program has selected itself. The suite is not synchronized: a
/// switch must not wait for the disk.
inline void countSwitch(UserDefaults& shared) {
    const auto times = shared.integerForKey(key::switchTimes);
    if (times < std::numeric_limits<std::int64_t>::max()) shared.setInteger(times + 1, key::switchTimes);
}

} // namespace quorvane
