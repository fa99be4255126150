#include "input/Launchers.h"

#include <algorithm>

namespace quorvane {

bool isLauncher(const LauncherFacts& launchers, const std::optional<std::string>& bundleIdentifier) {
    if (!bundleIdentifier) return false;
    const auto isPrefix = [&](const std::string& prefix) { return bundleIdentifier->starts_with(prefix); };
    return std::ranges::count(launchers.identifiers, *bundleIdentifier) > 0 ||
           std::ranges::any_of(launchers.identifierPrefixes, isPrefix);
}

} // namespace quorvane
