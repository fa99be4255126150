#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Workspace.h"
#include "platform/linux/applications/WindowOwners.h"

namespace quorvane {

/// The applications that have, or had, windows. One runs as long as a window of it exists or the process of
/// its first window lives: a window manager that restarts, or a window that closes into the notification
/// area, ends no application. One with nothing but panels and the desktop's background is an accessory.
///
/// Windows whose application nobody can tell are each one's own, and this process's are no application's that
/// runs: neither is among the running ones.
class WindowedApplications {
public:
    /// True when the window's application was not running before. A window that is known was shown again.
    bool add(WindowId window, const WindowOwner& owner, bool isHidden);

    // The window was closed: withdrawn, so that its program may show it again, or destroyed. True if it was
    // the last one of its application that was open.
    bool withdraw(WindowId window);
    bool remove(WindowId window);

    /// The window turned out to belong to another application.
    void disown(WindowId window);

    bool contains(WindowId window) const;

    /// True when all windows of the window's application were hidden until now.
    bool setHidden(WindowId window, bool isHidden);

    /// As the process that has the window; an application may run more than once.
    std::optional<RunningApplication> applicationOf(WindowId window) const;
    std::optional<RunningApplication> withId(std::string_view id) const;
    std::vector<RunningApplication> all() const;

private:
    struct Window {
        WindowId window;
        WindowOwner owner;
        bool isHidden;
        bool isOpen = true;

        bool isOfSameApplication(const Window& other) const {
            return window == other.window || (owner.id && owner.id == other.owner.id);
        }
    };
    struct Application {
        std::string id;
        std::string name;
        int pid; ///< Of its first window.
    };

    const Window* find(WindowId window) const;
    const Window* windowOf(std::string_view id) const;
    const Application* find(std::string_view id) const;
    bool isRunning(const Application& application) const;
    RunningApplication describe(const Application& application) const;

    std::vector<Window> windows_;           ///< In the order of their appearance.
    std::vector<Application> applications_; ///< In the order of their launch.
};

} // namespace quorvane
