#include "platform/linux/applications/WindowedApplications.h"

#include <algorithm>

#include "platform/linux/applications/ProcessFacts.h"

namespace quorvane {

bool WindowedApplications::add(xcb_window_t window, const WindowOwner& owner, bool isHidden) {
    if (contains(window)) return false;
    const auto* known = find(owner.id);
    const bool wasRunning = known && isRunning(*known);
    windows_.push_back({window, owner.id, owner.pid, isHidden, owner.isPartOfDesktop});
    if (wasRunning) return false;
    std::erase_if(applications_, [&](const auto& each) { return each.id == owner.id; });
    applications_.push_back({owner.id, owner.name, owner.pid});
    return true;
}

void WindowedApplications::remove(xcb_window_t window) {
    std::erase_if(windows_, [&](const auto& each) { return each.window == window; });
    for (auto& application : applications_) {
        if (const auto* first = windowOf(application.id)) application.pid = first->pid;
    }
    std::erase_if(applications_, [this](const auto& each) { return !isRunning(each); });
}

void WindowedApplications::disown(xcb_window_t window) {
    const auto application = applicationOf(window);
    remove(window);
    if (!application || windowOf(*application->bundleIdentifier)) return;
    std::erase_if(applications_, [&](const auto& each) { return each.id == application->bundleIdentifier; });
}

bool WindowedApplications::contains(xcb_window_t window) const {
    return std::ranges::find(windows_, window, &Window::window) != windows_.end();
}

bool WindowedApplications::setHidden(xcb_window_t window, bool isHidden) {
    const auto changed = std::ranges::find(windows_, window, &Window::window);
    if (changed == windows_.end()) return false;
    const bool wasHidden = std::ranges::all_of(
        windows_, [&](const auto& each) { return each.id != changed->id || each.isHidden; });
    changed->isHidden = isHidden;
    return wasHidden && !isHidden;
}

std::optional<RunningApplication> WindowedApplications::applicationOf(xcb_window_t window) const {
    const auto known = std::ranges::find(windows_, window, &Window::window);
    if (known == windows_.end()) return std::nullopt;
    auto application = withId(known->id);
    if (application && known->pid != 0) application->processIdentifier = known->pid;
    return application;
}

std::optional<RunningApplication> WindowedApplications::withId(std::string_view id) const {
    const auto* application = find(id);
    if (!application || !isRunning(*application)) return std::nullopt;
    const bool isPartOfDesktop = windowOf(id) && std::ranges::all_of(windows_, [id](const auto& each) {
                                     return each.id != id || each.isPartOfDesktop;
                                 });
    return RunningApplication{application->id, application->name,
                              isPartOfDesktop ? ActivationPolicy::accessory : ActivationPolicy::regular,
                              application->pid};
}

std::vector<RunningApplication> WindowedApplications::all() const {
    std::vector<RunningApplication> running;
    for (const auto& each : applications_) {
        if (auto application = withId(each.id)) running.push_back(std::move(*application));
    }
    return running;
}

const WindowedApplications::Window* WindowedApplications::windowOf(std::string_view id) const {
    const auto window = std::ranges::find(windows_, id, &Window::id);
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
