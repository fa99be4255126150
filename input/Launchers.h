#pragma once

#include <optional>
#include <string>

#include "platform/LauncherFacts.h"

namespace quorvane {

/// Whether it is one of the desktop's launchers, whose windows never make them the active application. Their
/// search field is ready at once, so they are switched at once; and while one is in front, a hot key does not
/// switch.
bool isLauncher(const LauncherFacts& launchers, const std::optional<std::string>& bundleIdentifier);

} // namespace quorvane
