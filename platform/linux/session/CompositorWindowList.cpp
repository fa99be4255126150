#include "platform/linux/session/CompositorWindowList.h"

#include <chrono>
#include <utility>

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds pauseBetweenChanges{30};
constexpr int launcherLayer = 27; ///< The native desktop's.

} // namespace

CompositorWindowList::CompositorWindowList(SessionApplications& applications, CompositorWindows& windows)
    : applications_(applications)
    , windows_(windows)
    , frontChanges_(windows.frontChanged.connect([this] {
        if (!collecting_.isActive()) collecting_.start();
    })) {
    collecting_.setSingleShot(true);
    collecting_.setInterval(pauseBetweenChanges);
    QObject::connect(&collecting_, &QTimer::timeout, &collecting_, [this] { frontMoved_.emit(); });
}

std::vector<WindowDescription> CompositorWindowList::windows() const {
    std::vector<WindowDescription> found;
    if (const auto* launcher = windows_.openLauncher()) {
        found.push_back({.ownerName = std::string(applications_.launchers.openLauncher()->name),
                         .name = launcher->title,
                         .bounds = launcher->bounds,
                         .layer = launcherLayer,
                         .isOnScreen = true});
    }
    const auto application = applications_.workspace.frontmostApplication();
    const auto* front = windows_.front();
    if (front && application) {
        found.push_back({.ownerName = application->localizedName,
                         .name = front->title,
                         .bounds = front->bounds,
                         .isOnScreen = !front->isHidden});
    }
    return found;
}

Subscription CompositorWindowList::addLauncherObserver(
    std::function<void(const std::optional<OpenLauncher>& open)> handler) {
    return applications_.launchers.onChange(
        [this, handler = std::move(handler)] { handler(openLauncher()); });
}

std::optional<OpenLauncher> CompositorWindowList::openLauncher() const {
    const auto* launcher = applications_.launchers.openLauncher();
    if (!launcher) return std::nullopt;
    const auto* window = windows_.openLauncher();
    return OpenLauncher{std::string(launcher->desktopId), window ? window->bounds : Rect{}};
}

} // namespace quorvane
