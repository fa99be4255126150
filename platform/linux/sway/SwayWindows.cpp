#include "platform/linux/sway/SwayWindows.h"

#include <chrono>

#include "platform/linux/applications/RunningLauncher.h"
#include "platform/linux/sway/SwayTree.h"

namespace quorvane {
namespace {

/// sway itself waits for programs that it resizes no longer than 200 ms.
constexpr std::chrono::milliseconds timeToFollow{300};

} // namespace

SwayWindows::SwayWindows(SwayIpc& sway, CompositorWindows& windows)
    : windows_(windows)
    , tree_(sway, SwayRequest::getTree, [this](const QJsonDocument& tree) { takeTree(tree.object()); })
    , events_(sway.happened.connect([this](SwayEvent type, const QJsonObject& event) {
        if (type == SwayEvent::window) handleWindow(event);
        if (type == SwayEvent::workspace) readAnew();
    })) {
    settling_.setSingleShot(true);
    settling_.setInterval(timeToFollow);
    QObject::connect(&settling_, &QTimer::timeout, &settling_, [this] { readAnew(); });
}

void SwayWindows::handleWindow(const QJsonObject& event) {
    const auto container = event.value("container").toObject();
    const auto change = event.value("change");
    // Titles change with every command in a terminal, and only that of the window in front is of interest.
    if (change == QLatin1String("title") && !container.value("focused").toBool()) return;
    if (change == QLatin1String("focus") && isSwayWindow(container)) {
        const auto window = swayWindowId(container);
        windows_.changed(window, swayWindow(container));
        windows_.activated(window);
        windows_.launcherMoved(nullptr);
    }
    readAnew();
    settling_.start();
}

void SwayWindows::takeTree(const QJsonObject& root) {
    const auto tree = swayTree(root);
    windows_.tellingAnew();
    for (const auto& [number, window] : tree.windows)
        windows_.changed(number, window);
    windows_.activated(tree.focused);
    windows_.toldAll();
    // sway does not tell who it is.
    windows_.launcherMoved(tree.isFocusElsewhere ? runningLauncher() : nullptr);
}

} // namespace quorvane
