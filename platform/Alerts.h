#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorvane {

struct Alert {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;   ///< The first one is the affirmative one.
    std::string suppressionButtonTitle; ///< Empty: no suppression check box.
};

inline constexpr int alertFirstButtonReturn = 1000; ///< The second button answers 1001, and so on.

/// What an alert with so many buttons answers when the one at this place was pressed, counted from 0. Ended
/// from outside, for instance when the program is told to quit, it was answered by none: then its last one
/// counts.
constexpr int alertResponse(std::int64_t button, std::int64_t buttons) {
    const auto last = std::max<std::int64_t>(buttons - 1, 0);
    return alertFirstButtonReturn + static_cast<int>(button >= 0 && button <= last ? button : last);
}

struct AlertAnswer {
    int response = 0;
    bool suppressionButtonIsOn = false;
};

/// Questions to the user.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Returns when the user has answered. Closing the alert answers like its last button.
    virtual AlertAnswer runModal(const Alert& alert) = 0;

    /// Shows it on the program's main window, or by itself when there is none, and returns at once.
    virtual void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) = 0;
};

} // namespace quorvane
