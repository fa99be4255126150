#include "platform/linux/session/WaylandNotice.h"

#include "platform/linux/localization/Localized.h"

namespace quorvane {

QString waylandNotice() {
    return localized("This is a Wayland session: Quorvane sees only programs that use X11, and cannot switch "
                     "the others. Log in to an X11 session to have it work for all of them.");
}

} // namespace quorvane
