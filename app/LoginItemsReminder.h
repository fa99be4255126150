#pragma once

#include <utility>

#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/Processes.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Tells the user at start-up how to keep the preferences window from opening at login.
class LoginItemsReminder {
public:
    /// `loginItemsCommand` is the shell command that shows which programs start at login.
    LoginItemsReminder(Alerts& alerts, const Application& application, Processes& processes,
                       StandardUserDefaults& standard, std::string loginItemsCommand)
        : alerts_(alerts)
        , application_(application)
        , processes_(processes)
        , standard_(standard)
        , loginItemsCommand_(std::move(loginItemsCommand)) {}

    /// Returns when the user has answered; at once when they asked not to be reminded. A suppression box
    /// ticked before "Cancel" does not count: who did not look at the login items is reminded again.
    void showIfNeeded();

private:
    Alerts& alerts_;
    const Application& application_;
    Processes& processes_;
    StandardUserDefaults& standard_;
    std::string loginItemsCommand_;
};

} // namespace quorvane
