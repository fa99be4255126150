#include "platform/linux/applications/SessionWorkspace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvane {

SessionWorkspace::SessionWorkspace(LauncherWindows& launchers, DesktopEntries& entries,
                                   BackgroundApplications* background)
    : launchers_(launchers)
    , entries_(entries)
    , background_(background) {
    if (background_) {
        backgroundStarts_ = background_->onStart([this](auto id) { backgroundApplicationStarted(id); });
    }
}

std::vector<RunningApplication> SessionWorkspace::runningApplications() const {
    auto running = launchers_.running();
    std::ranges::move(applications_.all(), std::back_inserter(running));
    if (!background_) return running;
    for (const auto& id : background_->ids()) {
        // A session bus has many names that are no application.
        if (!applications_.withId(id) && entries_.withId(id)) running.push_back(backgroundApplication(id));
    }
    return running;
}

std::vector<RunningApplication>
SessionWorkspace::runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const {
    if (auto application = applications_.withId(bundleIdentifier)) return {std::move(*application)};
    if (background_ && background_->isRunning(bundleIdentifier))
        return {backgroundApplication(bundleIdentifier)};
    return {};
}

void SessionWorkspace::opened(WindowId window, const WindowOwner& owner, bool isHidden) {
    if (owner.launcher) return launchers_.add(window, *owner.launcher);
    const bool ranBefore = owner.id && background_ && background_->isRunning(*owner.id);
    const bool isNew = applications_.add(window, owner, isHidden);
    if (isNew && !ranBefore)
        post(WorkspaceNotification::didLaunchApplication, *applications_.applicationOf(window));
}

// First who comes to the front, then who went: a launcher that closes because another application came to the
// front must not have the source of the one before selected.
void SessionWorkspace::movedToFront(WindowId window) {
    if (window != noWindow && window != activeWindow_ && !launchers_.contains(window)) activate(window);
    launchers_.focusMovedTo(window);
}

void SessionWorkspace::activate(WindowId window) {
    const auto application = applications_.applicationOf(window);
    if (!application) return;
    activeWindow_ = window;
    front_ = application;
    const auto shownAgain = std::exchange(shownAgain_, std::nullopt);
    post(WorkspaceNotification::didActivateApplication, *application);
    if (shownAgain && shownAgain == application->bundleIdentifier)
        post(WorkspaceNotification::didUnhideApplication, *application);
}

// Shown again means that every window of it was minimised. The application in front is the one the user types
// in: for any other one nothing is posted until it comes to the front, because the program would select the
// input source of an application that is not being typed in.
void SessionWorkspace::setHidden(WindowId window, bool isHidden) {
    if (!applications_.setHidden(window, isHidden)) return;
    const auto application = applications_.applicationOf(window);
    if (window == activeWindow_ || isInFront(application->bundleIdentifier)) {
        post(WorkspaceNotification::didUnhideApplication, *application);
    } else {
        shownAgain_ = application->bundleIdentifier;
    }
}

void SessionWorkspace::identifiedAnew(WindowId window, const WindowOwner& owner, bool isHidden) {
    const auto before = applications_.applicationOf(window);
    if (!before || owner.id == before->bundleIdentifier) return;
    applications_.disown(window);
    opened(window, owner, isHidden);
    if (window != activeWindow_) return;
    activeWindow_ = noWindow;
    movedToFront(window);
}

void SessionWorkspace::closed(WindowId window, bool isDestroyed, std::optional<WindowId> inFront) {
    const auto application = applications_.applicationOf(window);
    const bool wasLast = isDestroyed ? applications_.remove(window) : applications_.withdraw(window);
    const bool wasActive = window == activeWindow_;
    if (wasActive) activeWindow_ = noWindow;
    if (inFront) movedToFront(*inFront);
    const bool hasLeft =
        wasLast && activeWindow_ == noWindow && (wasActive || isInFront(application->bundleIdentifier));
    if (hasLeft) post(WorkspaceNotification::didLeaveFront, *std::exchange(front_, std::nullopt));
}

bool SessionWorkspace::isInFront(const std::optional<std::string>& id) const {
    return front_ && id && front_->bundleIdentifier == id;
}

RunningApplication SessionWorkspace::backgroundApplication(std::string_view id) const {
    const auto entry = entries_.withId(id);
    return {std::string(id), entry ? entry->name : std::string(id), ActivationPolicy::accessory, 0};
}

void SessionWorkspace::backgroundApplicationStarted(std::string_view id) {
    if (!applications_.withId(id))
        post(WorkspaceNotification::didLaunchApplication, backgroundApplication(id));
}

} // namespace quorvane
