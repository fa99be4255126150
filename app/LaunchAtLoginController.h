#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/LoginItems.h"
#include "platform/SystemLog.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Keeps the session's login item as the user's setting says, as long as the program runs.
class LaunchAtLoginController {
public:
    LaunchAtLoginController(LoginItems& loginItems, StandardUserDefaults& standard, SystemLog& log)
        : loginItems_(loginItems)
        , standard_(standard)
        , log_(log) {}

    /// Applies the setting to the login item of this identifier, and again after each write of the setting.
    /// Only the first call counts.
    LaunchAtLoginController& initWithIdentifier(std::string_view identifier);

    /// Asks the session once, whatever it does now, and logs how that went. A refusal changes no setting: the
    /// next write, or the next launch, tries again.
    void setLaunchAtLogin(bool enabled);

private:
    void applySetting();

    LoginItems& loginItems_;
    StandardUserDefaults& standard_;
    SystemLog& log_;
    std::optional<std::string> identifier_; ///< None before the first call.
    Subscription settingChanges_;
};

} // namespace quorvane
