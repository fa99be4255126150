#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Workspace.h"
#include "platform/linux/applications/BackgroundApplications.h"
#include "platform/linux/applications/LauncherWindows.h"
#include "platform/linux/applications/WindowOwners.h"
#include "platform/linux/applications/WindowedApplications.h"

namespace quorvane {

/// The applications of a session, told by what happens to its windows. A window of a launcher makes no
/// application active: while it is in front, the application that was there stays. This process is in front
/// while a window of it is, but never one of the applications that run.
class SessionWorkspace : public Workspace {
public:
    /// `background` may be null. All must outlive this object.
    SessionWorkspace(LauncherWindows& launchers, DesktopEntries& entries, BackgroundApplications* background);
    SessionWorkspace(const SessionWorkspace&) = delete;
    SessionWorkspace& operator=(const SessionWorkspace&) = delete;

    std::vector<RunningApplication> runningApplications() const override;
    std::vector<RunningApplication>
    runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const override;
    std::optional<RunningApplication> frontmostApplication() const override { return front_; }

    /// The last window of an application that became active; none when that one is closed.
    WindowId activeWindow() const { return activeWindow_; }

    /// None for a launcher's window and one that is not known.
    std::optional<RunningApplication> applicationOf(WindowId window) const {
        return applications_.applicationOf(window);
    }

    // What happens, as sessions tell it.

    /// The window is there: a new one, or one that was withdrawn.
    void opened(WindowId window, const WindowOwner& owner, bool isHidden);

    /// The window is in front now, a launcher's too, or none is. Telling it again does no harm.
    void movedToFront(WindowId window);

    /// It was minimised or shown again.
    void setHidden(WindowId window, bool isHidden);

    /// It turned out to belong to another application.
    void identifiedAnew(WindowId window, const WindowOwner& owner, bool isHidden);

    /// It was withdrawn, so that its program may show it again, or destroyed. With the window that is in
    /// front instead, if that has changed.
    void closed(WindowId window, bool isDestroyed, std::optional<WindowId> inFront);

private:
    void activate(WindowId window);
    bool isInFront(const std::optional<std::string>& id) const;
    RunningApplication backgroundApplication(std::string_view id) const;
    void backgroundApplicationStarted(std::string_view id);

    LauncherWindows& launchers_;
    DesktopEntries& entries_;
    BackgroundApplications* background_;
    WindowedApplications applications_;
    WindowId activeWindow_ = noWindow;
    std::optional<RunningApplication> front_;
    std::optional<std::string>
        shownAgain_; ///< Of the application that was so while another one was in front.
    Subscription backgroundStarts_;
};

} // namespace quorvane
