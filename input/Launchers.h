#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

inline constexpr std::string_view spotlightBundleIdentifier = "com.apple.Spotlight";
inline constexpr std::string_view alfredBundleIdentifierPrefix = "com.runningwithcrayons.Alfred";

/// Whether it is one of the launchers whose windows never make it the active application. Their search field
/// is ready at once, so they are switched at once; and while one is in front, a hot key does not switch.
bool isLauncher(const std::optional<std::string>& bundleIdentifier);

} // namespace quorvane
