#include "platform/linux/session/CompositorWindows.h"

#include <utility>

namespace quorvane {

void CompositorWindows::changed(WindowId window, const CompositorWindow& now) {
    if (window == noWindow) return;
    if (unconfirmed_) unconfirmed_->erase(window);
    const auto [known, isNew] = windows_.try_emplace(window, now);
    const auto before = std::exchange(known->second, now);
    auto& workspace = applications_.workspace;
    if (isNew) {
        workspace.opened(window, applications_.owners.identify(window, now.facts), now.isHidden);
        if (window == active_) workspace.movedToFront(window);
    } else if (before.facts != now.facts) {
        workspace.identifiedAnew(window, applications_.owners.identify(window, now.facts), now.isHidden);
    }
    if (before.isHidden != now.isHidden) workspace.setHidden(window, now.isHidden);
    const bool isMoved = isNew || before.bounds != now.bounds || before.isHidden != now.isHidden;
    if (isMoved && window == workspace.activeWindow()) frontChanged.emit();
}

void CompositorWindows::closed(WindowId window) {
    if (unconfirmed_) unconfirmed_->erase(window);
    if (windows_.erase(window) == 0) return;
    auto& [owners, launchers, workspace] = applications_;
    const bool wasFront = window == workspace.activeWindow();
    if (window == active_) active_ = noWindow;
    launchers.destroyed(window);
    workspace.closed(window, true, std::nullopt);
    owners.forget(window);
    if (wasFront) frontChanged.emit();
}

void CompositorWindows::activated(WindowId window) {
    active_ = window;
    applications_.workspace.movedToFront(window);
}

void CompositorWindows::launcherMoved(const KnownLauncher* launcher) {
    auto& launchers = applications_.launchers;
    if (launcher)
        launchers.popUpShown(launcherWithoutWindow, *launcher);
    else
        launchers.destroyed(launcherWithoutWindow);
}

void CompositorWindows::tellingAnew() {
    unconfirmed_ = windows_;
}

void CompositorWindows::toldAll() {
    const auto gone =
        std::exchange(unconfirmed_, std::nullopt).value_or(std::map<WindowId, CompositorWindow>());
    for (const auto& [window, was] : gone)
        closed(window);
}

const CompositorWindow* CompositorWindows::front() const {
    return find(applications_.workspace.activeWindow());
}

const CompositorWindow* CompositorWindows::openLauncher() const {
    return find(applications_.launchers.openWindow());
}

const CompositorWindow* CompositorWindows::find(WindowId window) const {
    const auto known = windows_.find(window);
    return known == windows_.end() ? nullptr : &known->second;
}

} // namespace quorvane
