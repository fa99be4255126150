#pragma once

#include <QTimer>

#include "platform/OnScreenWindowList.h"
#include "platform/linux/session/CompositorWindows.h"

namespace quorvane {

/// The windows of a Wayland session that the program asks for: the open launcher's and the front one.
class CompositorWindowList : public OnScreenWindowList {
public:
    /// Both must outlive this object.
    CompositorWindowList(SessionApplications& applications, CompositorWindows& windows);

    std::vector<WindowDescription> windows() const override;
    Subscription
    addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) override;
    Subscription addFrontWindowObserver(std::function<void()> handler) override {
        return frontMoved_.connect(std::move(handler));
    }

private:
    std::optional<OpenLauncher> openLauncher() const;

    SessionApplications& applications_;
    CompositorWindows& windows_;
    Signal<> frontMoved_;
    QTimer collecting_; ///< A window that is dragged moves with every frame.
    Subscription frontChanges_;
};

} // namespace quorvane
