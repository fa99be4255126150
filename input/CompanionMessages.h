#pragma once

#include <string_view>

/// The distributed notifications that this program and the companion application send each other.
namespace quorvane::message {

// From the companion.
/// Where the front window is now: the userInfo has at least the numbers "X", "Y" and "Width" of its bounds.
inline constexpr std::string_view windowAdjusted = "AXWindowAdjusted";
inline constexpr std::string_view addLocationInfo = "AddLocationInfoByTandrel"; ///< A place was stored.

// To it.
/// The input source to select stands under the key of this name in the shared suite.
inline constexpr std::string_view askToSwitchInput = "AskTandrelSwitchInput";
inline constexpr std::string_view startSetUp = "StartSetUpSwitchInputByLocation";
inline constexpr std::string_view stopSetUp = "StopSetUpSwitchInputByLocation";

} // namespace quorvane::message
