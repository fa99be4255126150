#include "switching/LauncherWatch.h"

#include <algorithm>
#include <array>

#include "indicator/IndicatorPlacement.h"
#include "platform/LauncherFacts.h"
#include "switching/LauncherWindows.h"

namespace quorvane {
namespace {

// Seconds.
constexpr double willOpenInterval = 0.1;
constexpr double stillOpenInterval = 0.2;
constexpr double doublePressTime = 0.26;
constexpr double windowOpeningTime = 0.05;
constexpr double stopDelay = 0.1;
constexpr double followDelay = 0.1;

constexpr std::uint64_t nothingHeld = ModifierFlag::nonCoalesced;

/// The flags when the last modifier has been released. Compared as they come: an event without the bit of a
/// real keyboard, or with any other one, is none of them.
constexpr std::array<std::uint64_t, 4> releaseFlags = {
    nothingHeld,
    nothingHeld | ModifierFlag::capsLock,
    nothingHeld | ModifierFlag::function,
    nothingHeld | ModifierFlag::capsLock | ModifierFlag::function,
};

} // namespace

LauncherWatch::LauncherWatch(const Workspace& workspace, const OnScreenWindowList& windowList,
                             RunLoop& runLoop, OpenLaunchers& openLaunchers, LauncherEpisodes& episodes,
                             InputIndicator& indicator)
    : workspace_(workspace)
    , windowList_(windowList)
    , runLoop_(runLoop)
    , episodes_(episodes)
    , indicator_(indicator)
    , alfred_{openLaunchers.alfred,
              isAlfredWindow,
              std::nullopt,
              {runLoop, willOpenInterval, [this] { checkAlfredWillOpen(); }},
              {runLoop, stillOpenInterval, [this] { checkAlfredIfOpenning(); }}}
    , spotlight_{openLaunchers.spotlight,
                 isSpotlightWindow,
                 std::string(spotlightBundleIdentifier),
                 {runLoop, willOpenInterval, [this] { checkSpotlightWillOpen(); }},
                 {runLoop, stillOpenInterval, [this] { checkSpotlightIfOpenning(); }}} {}

void LauncherWatch::flagsChanged(const Event& event) {
    const auto flags = event.modifierFlags;
    if (std::ranges::find(releaseFlags, flags) == releaseFlags.end()) handlePress(flags, event.timestamp);
    for (auto* launcher : {&alfred_, &spotlight_}) {
        if (launcher->isOpen) launcher->stillOpen.restart();
    }
    // The function key does not end the watch when it is released.
    if ((flags & ~ModifierFlag::capsLock) == nothingHeld)
        runLoop_.scheduledTimer(stopDelay, false, [this] { stopCheckAlfredOrSpotlightWillOpen(); });
}

void LauncherWatch::handlePress(std::uint64_t flags, double timestamp) {
    if (timestamp - lastFlagsTime_ < doublePressTime && flags == lastFlags_ && isAlfredRunning()) {
        // Pressed twice, which opens it: nothing else may happen before its window is there.
        runLoop_.sleep(windowOpeningTime);
        openIfOnScreen(alfred_);
    }
    lastFlagsTime_ = timestamp;
    lastFlags_ = flags;
    if (isAlfredRunning() && !alfred_.isOpen) alfred_.willOpen.restart();
    if (!spotlight_.isOpen) spotlight_.willOpen.restart();
}

void LauncherWatch::stopCheckAlfredOrSpotlightWillOpen() {
    alfred_.willOpen.disarm();
    spotlight_.willOpen.disarm();
}

bool LauncherWatch::isAlfredRunning() {
    for (const auto& application : workspace_.runningApplications()) {
        if (!application.bundleIdentifier ||
            !application.bundleIdentifier->starts_with(alfredBundleIdentifierPrefix))
            continue;
        alfred_.bundleIdentifier = application.bundleIdentifier;
        return true;
    }
    return false;
}

bool LauncherWatch::isOnScreen(const Launcher& launcher) {
    const auto windows = windowList_.windows();
    const auto window = std::ranges::find_if(windows, launcher.isItsWindow);
    if (window == windows.end()) return false;
    // The indicator goes there once, when the window is first seen.
    if (!launcher.isOpen && indicator_.followsWindows()) {
        indicator_.setFollowedWindowBounds(boundsDictionary(window->bounds));
        runLoop_.scheduledTimer(followDelay, false, [this] { indicator_.adjustIconView(); });
    }
    return true;
}

void LauncherWatch::checkWillOpen(Launcher& launcher) {
    if (!isOnScreen(launcher)) return;
    launcher.willOpen.disarm();
    episodes_.begin(launcher.isOpen, launcher.bundleIdentifier);
}

void LauncherWatch::checkIfOpenning(Launcher& launcher) {
    if (isOnScreen(launcher)) return;
    launcher.stillOpen.disarm();
    episodes_.end(launcher.isOpen);
}

void LauncherWatch::openIfOnScreen(Launcher& launcher) {
    if (!isOnScreen(launcher) || launcher.isOpen) return;
    episodes_.rememberFrontmost();
    episodes_.begin(launcher.isOpen, launcher.bundleIdentifier);
}

} // namespace quorvane
