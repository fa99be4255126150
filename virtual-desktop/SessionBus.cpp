#include "virtual-desktop/SessionBus.h"

namespace quorvane {

SessionBus::SessionBus(QProcessEnvironment* environment) {
    constexpr auto variable = "DBUS_SESSION_BUS_ADDRESS";
    if (environment) process_.setProcessEnvironment(*environment);
    process_.setStandardErrorFile(QProcess::nullDevice());
    const auto address =
        process_.startAndReadLine("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
    if (environment)
        environment->insert(variable, address);
    else
        qputenv(variable, address);
}

} // namespace quorvane
