#pragma once

#include <string>

#include "platform/linux/defaults/SettingsHealth.h"
#include "platform/linux/preferences/Notices.h"

namespace quorvane {

/// Why settings are not saved, for the user.
std::string textOfUnsaved(const SettingsHealth::Unsaved& unsaved);

/// Tells in the preferences window what the log says, too: that settings are not saved, and which file was
/// found damaged. Both must outlive it.
class SettingsNotices {
public:
    SettingsNotices(SettingsHealth& health, Notices& notices);

private:
    void tell();

    const SettingsHealth& health_;
    Notices& notices_;
    Subscription changes_;
};

} // namespace quorvane
