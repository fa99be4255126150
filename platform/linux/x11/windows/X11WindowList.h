#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/OnScreenWindowList.h"
#include "platform/linux/applications/LauncherWindows.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/applications/X11WindowOwners.h"
#include "platform/linux/x11/windows/WindowStack.h"
#include "platform/linux/x11/windows/X11FrontWindow.h"
#include "platform/linux/x11/windows/X11Screens.h"

namespace quorvane {

/// The windows as the server stacks them, menus and launchers that no window manager knows included;
/// minimised windows and those of other desktops come last. This process's menus, tips and indicator are left
/// out.
///
/// Bounds are those of a window's contents, without the window manager's frame, in whose corners the buttons
/// are, and without the shadow that some programs draw around their windows themselves.
/// Layers are the source platform's: 27 for launchers, 101 for windows outside the window manager's reach
/// (menus), 25 for docks and panels, 3 for tools and the like that are kept above others, 0 for normal
/// windows whether they are kept above others or not, -1 for those kept below, -1000 for the desktop.
///
/// The list is kept up by events, see `WindowStack`: reading it costs nothing while nothing happens, and two
/// round trips after windows have changed, however many windows there are.
class X11WindowList : public OnScreenWindowList {
public:
    X11WindowList(XConnection& x, X11WindowOwners& owners, const SessionWorkspace& workspace,
                  const X11Screens& screens, LauncherWindows& launchers);

    std::vector<WindowDescription> windows() const override;
    Subscription
    addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) override;
    Subscription addFrontWindowObserver(std::function<void()> handler) override {
        return frontWindow_.changed.connect(std::move(handler));
    }

private:
    /// What the window manager and the program say about a window.
    struct Described {
        std::optional<std::string> title;
        std::vector<std::uint32_t> shadow;
        int layer = 0; ///< As a window that is neither a launcher nor a menu.
        bool isStale = true;
        std::uint32_t askedAt = 0; ///< The request's number: what was told before it is known.
    };
    struct Question;

    void describe(const std::vector<StackedWindow>& stack) const;
    int layerOf(const std::vector<std::uint32_t>& states, const std::vector<std::uint32_t>& types) const;
    std::optional<OpenLauncher> openLauncher() const;
    void handle(const xcb_generic_event_t& event);

    XConnection& x_;
    X11WindowOwners& owners_;
    const X11Screens& screens_;
    LauncherWindows& launchers_;
    mutable WindowStack stack_;
    X11FrontWindow frontWindow_;
    mutable std::unordered_map<xcb_window_t, Described> described_;
    Subscription events_;
};

} // namespace quorvane
