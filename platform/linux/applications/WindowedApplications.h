#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xproto.h>

#include "platform/Workspace.h"
#include "platform/linux/applications/ApplicationIdentities.h"

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
    bool add(xcb_window_t window, const WindowOwner& owner, bool isHidden);

    // The window was closed: withdrawn, so that its program may show it again, or destroyed. True if it was
    // the last one of its application that was open.
    bool withdraw(xcb_window_t window);
    bool remove(xcb_window_t window);

    /// The window turned out to belong to another application.
    void disown(xcb_window_t window);

    bool contains(xcb_window_t window) const;

    /// True when all windows of the window's application were hidden until now.
    bool setHidden(xcb_window_t window, bool isHidden);

    /// As the process that has the window; an application may run more than once.
    std::optional<RunningApplication> applicationOf(xcb_window_t window) const;
    std::optional<RunningApplication> withId(std::string_view id) const;
    std::vector<RunningApplication> all() const;

private:
    struct Window {
        xcb_window_t window;
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

    const Window* find(xcb_window_t window) const;
    const Window* windowOf(std::string_view id) const;
    const Application* find(std::string_view id) const;
    bool isRunning(const Application& application) const;
    RunningApplication describe(const Application& application) const;

    std::vector<Window> windows_;           ///< In the order of their appearance.
    std::vector<Application> applications_; ///< In the order of their launch.
};

} // namespace quorvane
