#include "virtual-desktop/SessionBus.h"

#include <csignal>

#include <QTemporaryFile>

namespace quorvane {
namespace {

constexpr auto withoutServices = R"(<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

SessionBus::SessionBus(QProcessEnvironment* environment, Services services) {
    constexpr auto variable = "DBUS_SESSION_BUS_ADDRESS";
    QTemporaryFile configuration; // It is read at the start.
    configuration.open();
    configuration.write(withoutServices);
    configuration.flush();
    if (environment) process_.setProcessEnvironment(*environment);
    process_.setStandardErrorFile(QProcess::nullDevice());
    const auto address = process_.startAndReadLine(
        "dbus-daemon",
        {services == Services::none ? "--config-file=" + configuration.fileName() : QString("--session"),
         "--nofork", "--nopidfile", "--print-address"});
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
