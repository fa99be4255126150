#include "switching/LauncherNews.h"

#include "indicator/IndicatorPlacement.h"

namespace quorvane {

void LauncherNews::launcherChanged(const std::optional<OpenLauncher>& open) {
    if (!open) {
        if (openLaunchers_.told) episodes_.end(openLaunchers_.told);
        return;
    }
    if (!openLaunchers_.told || openIdentifier_ != open->bundleIdentifier) {
        openIdentifier_ = open->bundleIdentifier;
        episodes_.rememberFrontmost();
        episodes_.begin(openLaunchers_.told, open->bundleIdentifier);
    }
    if (!indicator_.followsWindows()) return;
    indicator_.setFollowedWindowBounds(boundsDictionary(open->bounds));
    indicator_.adjustIconView();
}

} // namespace quorvane
