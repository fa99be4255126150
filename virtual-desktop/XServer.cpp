#include "virtual-desktop/XServer.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <QElapsedTimer>

#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {

XServer::XServer(const QString& layouts) {
    process_.setStandardErrorFile(QProcess::nullDevice());
    const QStringList arguments{"-displayfd",  "1",         "-screen", "0",
                                "1600x900x24", "-nolisten", "tcp",     "-noreset"};
    for (const auto* ofAnotherSession : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "SESSION_MANAGER"})
        qunsetenv(ofAnotherSession);
    qputenv("DISPLAY", ":" + process_.startAndReadLine("Xvfb", arguments));
    if (!layouts.isEmpty() && !setLayouts(layouts)) throw std::runtime_error("setxkbmap fails");
}

void XServer::splitScreen(const QString& left, const QString& right) {
    // The first one has the server's only output.
    if (QProcess::execute("xrandr", {"--setmonitor", left, "800/211x900/238+0+0", "screen"}) != 0 ||
        QProcess::execute("xrandr", {"--setmonitor", right, "800/211x900/238+800+0", "none"}) != 0)
        throw std::runtime_error("xrandr fails");
}

bool XServer::setLayouts(const QString& layouts, const QString& variants, const QString& options) {
    const QStringList arguments{"-rules",   "evdev",  "-model",  "pc105", "-layout", layouts,
                                "-variant", variants, "-option", "",      "-option", options};
    return QProcess::execute("setxkbmap", arguments) == 0;
}

WindowManager::WindowManager(const QString& program) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/share"); // Its themes, without which it ends at once.
    QStringList arguments{"--sm-disable"};
    if (program == "bspwm") arguments = QStringList{"-c", "/dev/null"};
    if (program == "xfwm4") {
        arguments = {"--compositor=off"};
        // Its settings daemon would write them after everything has ended and the home is gone.
        environment.insert("XDG_CONFIG_HOME", "/dev/null");
        bus_.emplace(&environment);
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

} // namespace quorvane
