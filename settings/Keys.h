#pragma once

#include <string_view>

/// Every key that the program remembers something under, and what its absence means.
///
/// No default values are registered: a missing boolean reads as false, a missing number as 0 and a missing
/// container as empty.
namespace quorvane::key {

// In the standard defaults.
inline constexpr std::string_view autoStartAtLogin = "autoStartAtLogin"; // boolean
inline constexpr std::string_view notNeedRemindForAutoStartAtLogin =
    "NotNeedRemindForAutoStartAtLogin";                                  // boolean, only ever set to true
inline constexpr std::string_view enableTipOfState = "enableTipOfState"; // boolean: indicator shown
inline constexpr std::string_view followWindow = "followWindow";         // boolean: indicator follows windows
inline constexpr std::string_view hiddenIconInStatusBar = "hiddenIconInStatusBar"; // boolean
inline constexpr std::string_view defaultInput = "defaultInput";                   // string: input source id
inline constexpr std::string_view orderOfAppsRule = "orderOfAppsRule";     // array of bundle identifiers
inline constexpr std::string_view notDisplayAppName = "notDisplayAppName"; // array of bundle identifiers
inline constexpr std::string_view shortcutOfInput = "shortcutOfInput";     // input source id to InputShortcut
inline constexpr std::string_view timeWithFocus =
    "timeWithFocus"; // number of seconds, for systems that need it: how long a window of the program takes
                     // the keyboard focus after a selection. No widget changes it.

// In the standard defaults, mirrored to the shared suite for the companion application.
inline constexpr std::string_view autoInput = "autoInput"; // bundle identifier to AppRule
inline constexpr std::string_view enableForceEnglishBrowserAddress =
    "enableForceEnglishBrowserAddress"; // boolean

// In the shared suite.
inline constexpr std::string_view switchTimes = "SwitchTimes";                     // integer, only grows
inline constexpr std::string_view arrOfLocationInfo = "arrOfLocationInfo";         // array of LocationRule
inline constexpr std::string_view askTandrelSwitchInput = "AskTandrelSwitchInput"; // string: input source id

} // namespace quorvane::key
