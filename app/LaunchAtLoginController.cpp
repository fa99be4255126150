#include "app/LaunchAtLoginController.h"

#include "settings/Keys.h"

namespace quorvane {

LaunchAtLoginController& LaunchAtLoginController::initWithIdentifier(std::string_view identifier) {
    if (identifier_) return *this;
    identifier_ = identifier;
    applySetting();
    settingChanges_ = standard_.addObserver(key::autoStartAtLogin, [this](auto /*key*/) { applySetting(); });
    return *this;
}

void LaunchAtLoginController::setLaunchAtLogin(bool enabled) {
    const bool succeeded = loginItems_.setEnabled(identifier_.value_or(""), enabled);
    const std::string flag = enabled ? "1" : "0";
    log_.log("Call LoginItemSetEnabled with [" + flag + "] " + (succeeded ? "success" : "failed"));
}

void LaunchAtLoginController::applySetting() {
    setLaunchAtLogin(standard_.boolForKey(key::autoStartAtLogin));
}

} // namespace quorvane
