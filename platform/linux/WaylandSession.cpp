#include "platform/linux/WaylandSession.h"

#include "platform/linux/localization/Localized.h"

namespace quorvane {

bool isWaylandSession() {
    const auto type = qgetenv("XDG_SESSION_TYPE");
    return type == "wayland" || (type.isEmpty() && !qgetenv("WAYLAND_DISPLAY").isEmpty());
}

QString waylandNotice() {
    return localized("This is a Wayland session: Quorvane sees only programs that use X11, and cannot switch "
                     "the others. Log in to an X11 session to have it work for all of them.");
}

} // namespace quorvane
