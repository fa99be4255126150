#include "input/Launchers.h"

namespace quorvane {

bool isLauncher(const std::optional<std::string>& bundleIdentifier) {
    return bundleIdentifier && (*bundleIdentifier == spotlightBundleIdentifier ||
                                bundleIdentifier->starts_with(alfredBundleIdentifierPrefix));
}

} // namespace quorvane
