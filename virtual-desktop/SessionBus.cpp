#include "virtual-desktop/SessionBus.h"

#include <csignal>

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

void SessionBus::stop() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void SessionBus::resume() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

} // namespace quorvane
