#pragma once

#include <map>
#include <optional>

#include "platform/Signal.h"
#include "platform/linux/session/CompositorWindow.h"
#include "platform/linux/session/SessionApplications.h"

namespace quorvane {

/// The windows of a Wayland session, from what its compositor tells of them.
class CompositorWindows {
public:
    /// The applications must outlive this object.
    explicit CompositorWindows(SessionApplications& applications) : applications_(applications) {}
    CompositorWindows(const CompositorWindows&) = delete;
    CompositorWindows& operator=(const CompositorWindows&) = delete;

    // What happens, as the compositor tells it.

    /// The window has been opened, or something about it is different.
    void changed(WindowId window, const CompositorWindow& now);

    void closed(WindowId window);

    /// The user types into that window now, or into none. One that is not known is none.
    void activated(WindowId window);

    /// A launcher that is no window of the compositor's list has been opened. None: it was closed.
    void launcherMoved(const KnownLauncher* launcher);

    /// What was told so far no longer counts: all that is there is told anew, between these two.
    void tellingAnew();
    void toldAll();

    /// The window of the application in front; null while there is none.
    const CompositorWindow* front() const;

    /// That of the launcher that is open, where it has one; else null.
    const CompositorWindow* openLauncher() const;

    /// The front window was opened, moved, resized, minimised or closed. Not told when only another window
    /// has come to the front.
    Signal<> frontChanged;

private:
    /// No compositor numbers a window so.
    static constexpr WindowId launcherWithoutWindow = ~WindowId{0};

    const CompositorWindow* find(WindowId window) const;

    SessionApplications& applications_;
    std::map<WindowId, CompositorWindow> windows_;
    std::optional<std::map<WindowId, CompositorWindow>> unconfirmed_; ///< While all is told anew.
    WindowId active_ = noWindow; ///< As the compositor tells, launchers' too.
};

} // namespace quorvane
