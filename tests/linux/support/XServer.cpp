#include "linux/support/XServer.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <QElapsedTimer>

#include "linux/support/WaitUntil.h"
#include "linux/support/XClient.h"

namespace quorvane {

namespace {

void terminate(QProcess& process) {
    if (process.state() == QProcess::NotRunning) return;
    process.terminate();
    if (!process.waitForFinished(10000)) process.kill();
    process.waitForFinished();
}

/// Starts the program and returns its first line.
QByteArray firstLine(QProcess& process, const QString& program, const QStringList& arguments) {
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    QByteArray line;
    waitUntil([&] { return (line += process.readAllStandardOutput()).endsWith('\n'); });
    if (!line.endsWith('\n')) throw std::runtime_error("does not start: " + program.toStdString());
    return line.trimmed();
}

} // namespace

XServer::XServer() {
    const QStringList arguments{"-displayfd",  "1",         "-screen", "0",
                                "1600x900x24", "-nolisten", "tcp",     "-noreset"};
    qputenv("DISPLAY", ":" + firstLine(process_, "Xvfb", arguments));
}

void XServer::end() {
    terminate(process_);
}

WindowManager::WindowManager(const QString& program) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/share"); // Its themes, without which it ends at once.
    QStringList arguments{"--sm-disable"};
    if (program == "xfwm4") {
        arguments = {"--compositor=off"};
        // Its settings daemon would write them after everything has ended and the home is gone.
        environment.insert("XDG_CONFIG_HOME", "/dev/null");
        bus_.setProcessEnvironment(environment);
        environment.insert("DBUS_SESSION_BUS_ADDRESS",
                           firstLine(bus_, "dbus-daemon", {"--session", "--nofork", "--print-address=1"}));
    }
    process_.setProcessEnvironment(environment);
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setStandardOutputFile(QProcess::nullDevice());
    process_.start(program, arguments);
    // It announces itself before it takes care of windows, and windows shown in between stay unseen for ever.
    XClient client;
    QElapsedTimer age;
    xcb_window_t probe = client.show();
    age.start();
    const bool isReady = waitUntil([&] {
        if (!client.values(probe, "WM_STATE").empty()) return true;
        if (age.elapsed() < 100) return false;
        client.destroy(std::exchange(probe, client.show()));
        age.start();
        return false;
    });
    if (!isReady) throw std::runtime_error("no window manager: " + program.toStdString());
    client.destroy(probe);
    waitUntil([&] { return !std::ranges::count(client.values(client.root(), "_NET_CLIENT_LIST"), probe); });
}

void WindowManager::end() {
    terminate(process_);
    terminate(bus_);
}

} // namespace quorvane
