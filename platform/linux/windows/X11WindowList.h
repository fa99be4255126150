#pragma once

#include <vector>

#include "platform/OnScreenWindowList.h"
#include "platform/linux/applications/ApplicationIdentities.h"
#include "platform/linux/applications/X11Launchers.h"
#include "platform/linux/windows/StackedWindow.h"
#include "platform/linux/windows/X11Screens.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The windows as the server stacks them, menus and launchers that no window manager knows included;
/// minimised windows and those of other desktops come last. This process's menus, tips and indicator are left
/// out.
///
/// Bounds are those of a window's contents, without the window manager's frame, in whose corners the buttons
/// are, and without the shadow that some programs draw around their windows themselves.
/// Layers are the source platform's: 27 for launchers, 101 for windows outside the window manager's reach
/// (menus), 25 for docks and panels, 3 for windows kept above others, 0 for normal ones, -1 for those kept
/// below, -1000 for the desktop.
///
/// Reading costs six round trips at most, however many windows there are.
class X11WindowList : public OnScreenWindowList {
public:
    X11WindowList(XConnection& x, ApplicationIdentities& identities, const X11Screens& screens,
                  X11Launchers& launchers);

    std::vector<WindowDescription> windows() const override;
    Subscription
    addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) override;

private:
    std::optional<OpenLauncher> openLauncher() const;
    int layerOf(const StackedWindow& window, std::vector<std::uint32_t> states,
                const std::vector<std::uint32_t>& types) const;

    XConnection& x_;
    ApplicationIdentities& identities_;
    const X11Screens& screens_;
    X11Launchers& launchers_;
};

} // namespace quorvane
