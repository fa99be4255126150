#include "platform/simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace quorvane {

std::vector<RunningApplication>
SimulatedWorkspace::runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const {
    std::vector<RunningApplication> found;
    std::ranges::copy_if(running_, std::back_inserter(found), [&](const RunningApplication& application) {
        return application.bundleIdentifier == bundleIdentifier;
    });
    return found;
}

Subscription SimulatedWorkspace::addObserver(WorkspaceNotification notification,
                                             std::function<void(const RunningApplication&)> handler) {
    constexpr std::array names = {"activations", "unhides", "launches", "leaves"};
    journal_.add("observe ", names.at(static_cast<std::size_t>(notification)));
    return Workspace::addObserver(notification, std::move(handler));
}

void SimulatedWorkspace::launch(const RunningApplication& application) {
    running_.push_back(application);
    post(WorkspaceNotification::didLaunchApplication, application);
}

void SimulatedWorkspace::launch(const std::string& bundleIdentifier, ActivationPolicy policy) {
    launch({bundleIdentifier, bundleIdentifier, policy, static_cast<int>(running_.size()) + 100});
}

void SimulatedWorkspace::quit(std::string_view bundleIdentifier) {
    std::erase_if(running_, [&](const RunningApplication& application) {
        return application.bundleIdentifier == bundleIdentifier;
    });
    if (!frontmost_ || frontmost_->bundleIdentifier != bundleIdentifier) return;
    const RunningApplication left = *frontmost_;
    activateNext();
    if (!frontmost_) post(WorkspaceNotification::didLeaveFront, left);
}

void SimulatedWorkspace::hide(std::string_view bundleIdentifier) {
    hidden_.emplace(bundleIdentifier);
    if (frontmost_ && frontmost_->bundleIdentifier == bundleIdentifier) activateNext();
}

void SimulatedWorkspace::activateNext() {
    frontmost_.reset();
    const auto next =
        std::find_if(running_.rbegin(), running_.rend(), [&](const RunningApplication& application) {
            return application.activationPolicy == ActivationPolicy::regular &&
                   !hidden_.contains(application.bundleIdentifier.value_or(""));
        });
    if (next != running_.rend()) activate(RunningApplication(*next));
}

void SimulatedWorkspace::activate(const std::string& bundleIdentifier) {
    if (runningApplicationsWithBundleIdentifier(bundleIdentifier).empty()) launch(bundleIdentifier);
    activate(runningApplicationsWithBundleIdentifier(bundleIdentifier).front());
}

void SimulatedWorkspace::activate(const RunningApplication& application) {
    std::stable_partition(running_.begin(), running_.end(),
                          [&](const RunningApplication& other) { return other != application; });
    const bool wasHidden = hidden_.erase(application.bundleIdentifier.value_or("")) > 0;
    frontmost_ = application;
    post(WorkspaceNotification::didActivateApplication, application);
    if (wasHidden) post(WorkspaceNotification::didUnhideApplication, application);
}

void SimulatedWorkspace::unhide(std::string_view bundleIdentifier) {
    for (const auto& application : runningApplicationsWithBundleIdentifier(bundleIdentifier))
        post(WorkspaceNotification::didUnhideApplication, application);
}

} // namespace quorvane
