#include "platform/linux/applications/LauncherWindows.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

RunningApplication applicationOf(const KnownLauncher& launcher) {
    return {std::string(launcher.desktopId), std::string(launcher.name), ActivationPolicy::accessory, 0};
}

} // namespace

const KnownLauncher* LauncherWindows::openLauncher() const {
    const auto opened = windows_.find(open_);
    return opened == windows_.end() ? nullptr : opened->second.launcher;
}

std::vector<RunningApplication> LauncherWindows::running() const {
    std::vector<RunningApplication> found;
    for (const auto& [number, window] : windows_) {
        auto application = applicationOf(*window.launcher);
        if (std::ranges::find(found, application) == found.end()) found.push_back(std::move(application));
    }
    return found;
}

void LauncherWindows::add(WindowId window, const KnownLauncher& launcher) {
    windows_.insert_or_assign(window, Window{&launcher, false});
}

void LauncherWindows::focusMovedTo(WindowId window) {
    focused_ = contains(window) ? window : noWindow;
    const auto opened = windows_.find(open_);
    // A pop-up has the keys, whoever has the focus meanwhile.
    if (opened == windows_.end() || !opened->second.isPopUp) open(focused_);
}

void LauncherWindows::popUpShown(WindowId window, const KnownLauncher& launcher) {
    windows_.insert_or_assign(window, Window{&launcher, true});
    open(window);
}

void LauncherWindows::hidden(WindowId window) {
    if (window == focused_) focused_ = noWindow;
    if (isOpen(window)) open(focused_);
}

void LauncherWindows::destroyed(WindowId window) {
    hidden(window);
    windows_.erase(window);
}

void LauncherWindows::open(WindowId window) {
    if (std::exchange(open_, window) != window) changed_.emit();
}

} // namespace quorvane
