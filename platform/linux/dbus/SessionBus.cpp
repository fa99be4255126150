#include "platform/linux/dbus/SessionBus.h"

#include "platform/linux/Log.h"

namespace quorvane {

QDBusConnection sessionBus() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        logLine(
            "no session bus: there is no contact with the companion application, and applications without "
            "windows cannot be seen");
    return bus;
}

} // namespace quorvane
