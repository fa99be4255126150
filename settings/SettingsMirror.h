#pragma once

#include "platform/UserDefaults.h"

namespace quorvane {

/// Copies settings that the companion application needs into the shared suite, since it cannot read this
/// program's own. Made on a change only, never at start-up: a rule counts once it was changed while the
/// program ran.
///
/// It reads the program's own domain, and is to be told of writes there only: once the standard defaults
/// include the shared suite, a copy would be read back and told there as well.
class SettingsMirror {
public:
    explicit SettingsMirror(UserDefaultsStores& stores)
        : own_(stores.standardUserDefaults().ownDomain())
        , stores_(stores) {}

    /// The application rules, as they stand; removes the copy when there are none.
    void copyAutoInput();

    void copyForceEnglishBrowserAddress();

private:
    const UserDefaults& own_;
    UserDefaultsStores& stores_;
};

} // namespace quorvane
