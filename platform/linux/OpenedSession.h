#pragma once

#include <functional>
#include <memory>

#include "platform/linux/session/Session.h"
#include "platform/linux/session/SessionKind.h"
#include "platform/linux/session/SingleInstance.h"
#include "platform/linux/wayland/WaylandDisplay.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Whether this process can open windows in such a session.
bool hasDisplay(SessionKind kind);

/// What Qt calls the way there.
const char* toolkitPlatform(SessionKind kind);

/// What is needed of the session before there is a desktop, and what makes the session then.
class OpenedSession {
public:
    /// Needs a QApplication. Null when the display refuses.
    static std::unique_ptr<OpenedSession> open(SessionKind kind);

    SingleInstance& instance() const { return *instance_; }
    XConnection* x() const { return x_.get(); } ///< Null where there is no X server to speak to.

    /// Whether it serves one instance of the program at a time: a second one would take the first one's
    /// place.
    bool servesOnlyOne() const { return kind_ == SessionKind::kwin || kind_ == SessionKind::gnome; }

    /// Valid as long as this object.
    SessionStart start() const;

    /// The X server has gone. A Wayland compositor that goes ends the process by way of the toolkit.
    Subscription onLost(const std::function<void()>& handler) const;

private:
    explicit OpenedSession(SessionKind kind) : kind_(kind) {}

    SessionKind kind_;
    std::unique_ptr<XConnection> x_;
    std::unique_ptr<WaylandDisplay> wayland_; ///< For compositors that are spoken to by protocols.
    std::unique_ptr<SingleInstance> instance_;
};

} // namespace quorvane
