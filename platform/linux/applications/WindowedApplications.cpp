#include "platform/linux/applications/WindowedApplications.h"

#include <algorithm>

#include "platform/linux/applications/ProcessFacts.h"

namespace quorvane {

bool WindowedApplications::add(WindowId window, const WindowOwner& owner, bool isHidden) {
    const auto known = std::ranges::find(windows_, window, &Window::window);
    if (known != windows_.end()) {
        known->isOpen = true;
        return false;
    }
    const auto* application = owner.id ? find(*owner.id) : nullptr;
    const bool wasRunning = application && isRunning(*application);
    windows_.push_back({window, owner, isHidden});
    if (wasRunning || !owner.id || owner.isThisProcess) return false;
    std::erase_if(applications_, [&](const auto& each) { return each.id == owner.id; });
    applications_.push_back({*owner.id, owner.name, owner.pid});
    return true;
}

bool WindowedApplications::withdraw(WindowId window) {
    const auto closed = std::ranges::find(windows_, window, &Window::window);
    if (closed == windows_.end()) return false;
    closed->isOpen = false;
    return std::ranges::none_of(
        windows_, [&](const auto& each) { return each.isOpen && each.isOfSameApplication(*closed); });
}

bool WindowedApplications::remove(WindowId window) {
    const bool wasLast = withdraw(window);
    std::erase_if(windows_, [&](const auto& each) { return each.window == window; });
    for (auto& application : applications_) {
        if (const auto* first = windowOf(application.id)) application.pid = first->owner.pid;
    }
    std::erase_if(applications_, [this](const auto& each) { return !isRunning(each); });
    return wasLast;
}

void WindowedApplications::disown(WindowId window) {
    const auto application = applicationOf(window);
    remove(window);
    if (!application || !application->bundleIdentifier || windowOf(*application->bundleIdentifier)) return;
    std::erase_if(applications_, [&](const auto& each) { return each.id == application->bundleIdentifier; });
}

bool WindowedApplications::contains(WindowId window) const {
    return find(window);
}

bool WindowedApplications::setHidden(WindowId window, bool isHidden) {
    const auto changed = std::ranges::find(windows_, window, &Window::window);
    if (changed == windows_.end()) return false;
    const bool wasHidden = std::ranges::all_of(
        windows_, [&](const auto& each) { return each.isHidden || !each.isOfSameApplication(*changed); });
    changed->isHidden = isHidden;
    return wasHidden && !isHidden;
}

std::optional<RunningApplication> WindowedApplications::applicationOf(WindowId window) const {
    const auto* known = find(window);
    if (!known) return std::nullopt;
    const auto& owner = known->owner;
    const auto* application = owner.id ? find(*owner.id) : nullptr;
    if (!application) {
        const auto policy = owner.isThisProcess ? ActivationPolicy::accessory : ActivationPolicy::regular;
        return RunningApplication{owner.id, owner.name, policy, owner.pid};
    }
    auto described = describe(*application);
    if (owner.pid != 0) described.processIdentifier = owner.pid;
    return described;
}

std::optional<RunningApplication> WindowedApplications::withId(std::string_view id) const {
    const auto* application = find(id);
    if (!application || !isRunning(*application)) return std::nullopt;
    return describe(*application);
}

std::vector<RunningApplication> WindowedApplications::all() const {
    std::vector<RunningApplication> running;
    for (const auto& each : applications_) {
        if (isRunning(each)) running.push_back(describe(each));
    }
    return running;
}

RunningApplication WindowedApplications::describe(const Application& application) const {
    const bool isPartOfDesktop =
        windowOf(application.id) && std::ranges::all_of(windows_, [&](const auto& each) {
            return each.owner.id != application.id || each.owner.isPartOfDesktop;
        });
    return {application.id, application.name,
            isPartOfDesktop ? ActivationPolicy::accessory : ActivationPolicy::regular, application.pid};
}

const WindowedApplications::Window* WindowedApplications::find(WindowId window) const {
    const auto known = std::ranges::find(windows_, window, &Window::window);
    return known == windows_.end() ? nullptr : &*known;
}

const WindowedApplications::Window* WindowedApplications::windowOf(std::string_view id) const {
    const auto window = std::ranges::find_if(windows_, [&](const auto& each) { return each.owner.id == id; });
    return window == windows_.end() ? nullptr : &*window;
}

const WindowedApplications::Application* WindowedApplications::find(std::string_view id) const {
    const auto application = std::ranges::find(applications_, id, &Application::id);
    return application == applications_.end() ? nullptr : &*application;
}

bool WindowedApplications::isRunning(const Application& application) const {
    return windowOf(application.id) || processLives(application.pid);
}

} // namespace quorvane
