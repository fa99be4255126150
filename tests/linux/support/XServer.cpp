#include "linux/support/XServer.h"

#include <stdexcept>

#include "linux/support/WaitUntil.h"
#include "linux/support/XClient.h"

namespace quorvane {

namespace {

void terminate(QProcess& process) {
    process.terminate();
    if (!process.waitForFinished(10000)) process.kill();
    process.waitForFinished();
}

} // namespace

XServer::XServer() {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start("Xvfb",
                   {"-displayfd", "1", "-screen", "0", "1600x900x24", "-nolisten", "tcp", "-noreset"});
    QByteArray display;
    waitUntil([&] { return (display += process_.readAllStandardOutput()).endsWith('\n'); });
    if (!display.endsWith('\n')) throw std::runtime_error("Xvfb does not start");
    qputenv("DISPLAY", ":" + display.trimmed());
}

void XServer::end() {
    terminate(process_);
}

WindowManager::WindowManager(const QString& program) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setStandardOutputFile(QProcess::nullDevice());
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/share"); // Its themes, without which it ends at once.
    process_.setProcessEnvironment(environment);
    const bool isOpenbox = program == "openbox";
    process_.start(program, isOpenbox ? QStringList{"--sm-disable"} : QStringList{"--compositor=off"});
    XClient client;
    const auto isReady = [&] {
        const auto check = client.values(client.root(), "_NET_SUPPORTING_WM_CHECK");
        return !check.empty() && !client.values(client.root(), "_NET_CURRENT_DESKTOP").empty() &&
               !client.values(check.front(), "_NET_SUPPORTING_WM_CHECK").empty();
    };
    if (!waitUntil(isReady)) throw std::runtime_error("no window manager: " + program.toStdString());
}

void WindowManager::end() {
    terminate(process_);
}

} // namespace quorvane
