#pragma once

#include <stdexcept>

#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/gnome/GnomeSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

/// The program's session in this process, from when the extension has told of the sources us, ru and de.
struct GnomeAgent {
    explicit GnomeAgent(SessionApplications& applications)
        : session(bus, applications,
                  {[](const auto&) { return nullptr; }, [](const auto&) { return nullptr; }}) {
        bus.registerService(control_address::service());
        const auto& layouts = session.parts().layouts;
        if (!waitUntil([&] { return layouts.createInputSourceList().size() == 3; }))
            throw std::runtime_error("the extension is silent");
    }
    ~GnomeAgent() {
        bus.unregisterService(control_address::service());
        QDBusConnection::disconnectFromBus(bus.name());
    }

    QDBusConnection bus =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "agent");
    GnomeSession session;
};

} // namespace quorvane
