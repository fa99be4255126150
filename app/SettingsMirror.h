#pragma once

#include "platform/UserDefaults.h"

namespace quorvane {

/// Copies settings that the companion application needs into the shared suite, since it cannot read this
/// program's own. Made on a change only, never at start-up: a rule counts once it was changed while the
/// program ran.
class SettingsMirror {
public:
    explicit SettingsMirror(UserDefaultsStores& stores) : stores_(stores) {}

    /// The application rules, as they stand; removes the copy when there are none.
    void copyAutoInput();

    void copyForceEnglishBrowserAddress();

private:
    UserDefaultsStores& stores_;
};

} // namespace quorvane
