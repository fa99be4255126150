#include "platform/linux/OpenedSession.h"

#include <utility>

#include <xcb/xcb.h>

#include "platform/linux/dbus/BusSingleInstance.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/gnome/GnomeSession.h"
#include "platform/linux/kwin/KWinSession.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/qt/ReferencedIcon.h"
#include "platform/linux/session/WaylandNotice.h"
#include "platform/linux/sway/SwaySession.h"
#include "platform/linux/x11/X11Session.h"
#include "platform/linux/x11/X11SingleInstance.h"

namespace quorvane {

bool hasDisplay(SessionKind kind) {
    if (!isOfX11(kind)) return true; // It has just answered.
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool works = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return works;
}

const char* toolkitPlatform(SessionKind kind) {
    return isOfX11(kind) ? "xcb" : "wayland";
}

std::unique_ptr<OpenedSession> OpenedSession::open(SessionKind kind) {
    auto opened = std::unique_ptr<OpenedSession>(new OpenedSession(kind));
    if (!isOfX11(kind)) {
        opened->instance_ = std::make_unique<BusSingleInstance>(sessionBus());
        opened->wayland_ = WaylandDisplay::open();
        return opened->wayland_ ? std::move(opened) : nullptr;
    }
    opened->x_ = XConnection::open();
    if (!opened->x_) return nullptr;
    opened->instance_ = std::make_unique<X11SingleInstance>(*opened->x_);
    return opened;
}

SessionStart OpenedSession::start() const {
    return [this](SessionApplications& applications) -> std::unique_ptr<Session> {
        switch (kind_) {
        case SessionKind::sway:
            return std::make_unique<SwaySession>(*wayland_, applications, drawLettersIcon);
        case SessionKind::gnome:
            return std::make_unique<GnomeSession>(sessionBus(), applications,
                                                  InputMethodIcons{drawLettersIcon, referencedIcon});
        case SessionKind::kwin:
            return std::make_unique<KWinSession>(sessionBus(), *wayland_, applications, drawLettersIcon);
        case SessionKind::x11:
            return std::make_unique<X11Session>(*x_, applications, drawLettersIcon);
        case SessionKind::otherWayland:
            return std::make_unique<X11Session>(*x_, applications, drawLettersIcon,
                                                waylandNotice().toStdString());
        }
        return nullptr;
    };
}

Subscription OpenedSession::onLost(const std::function<void()>& handler) const {
    return x_ ? x_->onLost(handler) : Subscription();
}

} // namespace quorvane
