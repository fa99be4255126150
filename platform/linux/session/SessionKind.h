#pragma once

#include <string_view>

namespace quorvane {

enum class SessionKind {
    x11,
    sway,
    kwin,
    gnome,
    otherWayland ///< One whose compositor tells nobody who is in front, or lets nobody switch layouts.
};

/// What answers here: a compositor's own service, and not the name that a desktop gives itself. Asks the
/// session bus, and may be called before there is an application object. Asked once, when the program starts.
SessionKind sessionThere();

} // namespace quorvane
