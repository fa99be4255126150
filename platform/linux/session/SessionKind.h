#pragma once

namespace quorvane {

enum class SessionKind {
    x11,
    sway,
    kwin,
    gnome,
    otherWayland ///< One whose compositor tells nobody who is in front, or lets nobody switch layouts.
};

/// Whether the session is used as an X server, as one that offers no other way is, for the programs that use
/// it so.
inline bool isOfX11(SessionKind kind) {
    return kind == SessionKind::x11 || kind == SessionKind::otherWayland;
}

/// What answers here: a compositor's own service, and not the name that a desktop gives itself. Asks the
/// session bus, and may be called before there is an application object. Asked once, when the program starts.
SessionKind sessionThere();

} // namespace quorvane
