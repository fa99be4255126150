#include "switching/AppChangeHandler.h"

#include <utility>

namespace quorvane {

void AppChangeHandler::appChanged(const RunningApplication& application) {
    if (!companion_.isRunning()) indicator_.checkFollowWindow();
    openLaunchers_ = {};

    const auto& bundleID = application.bundleIdentifier;
    if (bundleID && bundleID == lastBundleID_) return;
    lastBundleID_ = bundleID;

    const auto mainScreen = screens_.mainScreen();
    const auto screenNumber = mainScreen ? mainScreen->number : 0;
    const bool screenChanged = std::exchange(lastScreenNumber_, screenNumber) != screenNumber;
    if (screenChanged && screenChangeDelay_ > 0)
        runLoop_.scheduledTimer(screenChangeDelay_, false, [this] { delayChangeInputToAppID(); });
    else
        decision_.decide(bundleID);
}

void AppChangeHandler::delayChangeInputToAppID() {
    decision_.decide(lastBundleID_);
}

} // namespace quorvane
