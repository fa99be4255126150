#include "switching/LauncherWatch.h"

#include <algorithm>
#include <array>

#include "indicator/IndicatorPlacement.h"
#include "input/Launchers.h"
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
                             RunLoop& runLoop, const CompanionLink& companion, OpenLaunchers& openLaunchers,
                             InputDecision& decision, AppChangeHandler& appChangeHandler,
                             InputIndicator& indicator)
    : workspace_(workspace)
    , windowList_(windowList)
    , runLoop_(runLoop)
    , companion_(companion)
    , decision_(decision)
    , appChangeHandler_(appChangeHandler)
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

void LauncherWatch::handleEvent(const Event& event) {
    if (event.type == EventType::flagsChanged)
        handleFlags(event.modifierFlags, event.timestamp);
    else if (!companion_.isRunning())
        indicator_.checkFollowWindow();
}

void LauncherWatch::handleFlags(std::uint64_t flags, double timestamp) {
    if (std::ranges::find(releaseFlags, flags) == releaseFlags.end()) handlePress(flags, timestamp);
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

void LauncherWatch::launcherWindowsChanged() {
    if (alfred_.isOpen)
        checkIfOpenning(alfred_);
    else if (isAlfredRunning())
        openIfOnScreen(alfred_);

    if (spotlight_.isOpen)
        checkIfOpenning(spotlight_);
    else
        openIfOnScreen(spotlight_);
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
    launcher.isOpen = true;
    launcher.willOpen.disarm();
    decision_.decide(launcher.bundleIdentifier);
}

void LauncherWatch::checkIfOpenning(Launcher& launcher) {
    if (isOnScreen(launcher)) return;
    launcher.isOpen = false;
    launcher.stillOpen.disarm();
    decision_.decide(appChangeHandler_.lastBundleID());
    indicator_.checkFollowWindow();
}

void LauncherWatch::openIfOnScreen(Launcher& launcher) {
    if (!isOnScreen(launcher) || launcher.isOpen) return;
    const auto frontmost = workspace_.frontmostApplication();
    appChangeHandler_.setLastBundleIDIfNone(frontmost ? frontmost->bundleIdentifier.value_or(std::string())
                                                      : std::string());
    launcher.isOpen = true;
    decision_.decide(launcher.bundleIdentifier);
    launcher.stillOpen.restart();
}

} // namespace quorvane
