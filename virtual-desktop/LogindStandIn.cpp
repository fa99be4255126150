#include "virtual-desktop/LogindStandIn.h"

#include <stdexcept>

#include <QDBusConnection>
#include <QDBusConnectionInterface>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

LogindStandIn::LogindStandIn() {
    constexpr auto connectionName = "asks for logind";
    const auto address = environment_.value("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setStandardOutputFile(QProcess::nullDevice());
    // The one that has the module: another may come first in PATH.
    process_.start("/usr/bin/python3", {"-m", "dbusmock", "--system", "--template", "logind"});
    const bool isThere = waitUntil(
        [&] {
            const auto bus = QDBusConnection::connectToBus(address, connectionName);
            return bus.interface()->isServiceRegistered("org.freedesktop.login1").value();
        },
        std::chrono::minutes(1));
    QDBusConnection::disconnectFromBus(connectionName);
    if (!isThere) throw std::runtime_error("python3-dbusmock does not start");
}

LogindStandIn::~LogindStandIn() {
    qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}

} // namespace quorvane
