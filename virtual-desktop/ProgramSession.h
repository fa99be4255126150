#pragma once

#include <optional>

#include "virtual-desktop/ProgramWithRules.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/XClient.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {

/// A home, an X server with the layouts us, ru and de (`xkb:us` selected), a window manager and a session
/// bus.
struct X11Home {
    explicit X11Home(const QString& windowManager) : manager(windowManager) {}

    ScratchFolders folders;
    XServer server{"us,ru,de"};
    std::optional<WindowManager> manager;
    SessionBus bus;
};

/// The program's user's session on X11.
class ProgramSession : public X11Home, public ProgramWithRules {
public:
    explicit ProgramSession(const QString& windowManager = "openbox") : X11Home(windowManager) {}

    /// The group that typing uses, as the server tells it.
    unsigned group() { return user.currentGroup(); }
    bool waitForGroup(unsigned wanted);

    /// As the window manager tells it; none when there is none.
    xcb_window_t activeWindow();

    /// Types the keys at these places of the keyboard, whatever layout they are in.
    void type(std::initializer_list<std::uint8_t> keycodes);

    XClient user;
};

} // namespace quorvane
