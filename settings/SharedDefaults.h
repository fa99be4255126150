#pragma once

#include <memory>

#include "platform/UserDefaults.h"
#include "settings/Maker.h"

namespace quorvane {

/// A fresh object on the suite shared with the companion application. Opened for one access and dropped after
/// it: the companion writes there too, and a kept object would invite trust in old values.
inline std::unique_ptr<UserDefaults> openSharedDefaults(UserDefaultsStores& stores) {
    return stores.initWithSuiteName(maker::sharedSuiteName);
}

} // namespace quorvane
