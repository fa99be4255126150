#include "switching/LauncherEpisodes.h"

namespace quorvane {

void LauncherEpisodes::begin(bool& isOpen, const std::optional<std::string>& bundleIdentifier) {
    isOpen = true;
    decision_.decide(bundleIdentifier);
}

void LauncherEpisodes::end(bool& isOpen) {
    isOpen = false;
    decision_.decide(appChangeHandler_.lastBundleID());
    indicator_.checkFollowWindow();
}

void LauncherEpisodes::rememberFrontmost() {
    const auto frontmost = workspace_.frontmostApplication();
    appChangeHandler_.setLastBundleIDIfNone(frontmost ? frontmost->bundleIdentifier.value_or(std::string())
                                                      : std::string());
}

} // namespace quorvane
