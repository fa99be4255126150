#include "virtual-desktop/WaylandServer.h"

#include <csignal>
#include <stdexcept>

#include <QFile>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr const char* ofSession[] = {
    "WAYLAND_DISPLAY", "DISPLAY", "XAUTHORITY", "XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "SESSION_MANAGER"};

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr const char* sanitizerOptions = "ASAN_OPTIONS";

} // namespace

WaylandServer::WaylandServer(const char* desktop) {
    for (const auto* variable : ofSession)
        qunsetenv(variable);
    qputenv("XDG_SESSION_TYPE", "wayland");
    qputenv("XDG_CURRENT_DESKTOP", desktop);
    // Qt's plug-in for Wayland leaves its objects behind when a program ends. What a program of ours left, it
    // would leave on X11 as well, where leaks are looked for.
    qputenv(sanitizerOptions, "detect_leaks=0");
}

WaylandServer::~WaylandServer() {
    end();
    qunsetenv(sanitizerOptions);
    for (const auto* variable : ofSession)
        qunsetenv(variable);
}

void WaylandServer::start(const QString& program, const QStringList& arguments,
                          const QStringList& environment, const std::function<bool()>& isReady) {
    auto variables = QProcessEnvironment::systemEnvironment();
    for (const auto* ofClients : {"WAYLAND_DISPLAY", "DISPLAY", "XAUTHORITY"})
        variables.remove(ofClients);
    variables.insert("XDG_DATA_DIRS", "/usr/local/share:/usr/share"); // what it is made of
    for (const auto& each : environment)
        variables.insert(each.section('=', 0, 0), each.section('=', 1));
    process_.setProcessEnvironment(variables);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.setStandardOutputFile(runFolder() + "/compositor.log");
    process_.start(program, arguments);
    process_.waitForStarted();
    const bool hasStarted = waitUntil([&] { return process_.state() != QProcess::Running || isReady(); },
                                      std::chrono::minutes(1));
    if (!hasStarted || process_.state() != QProcess::Running)
        throw std::runtime_error("does not start: " + program.toStdString() + "\n" + log().toStdString());
}

void WaylandServer::useDisplays(const QByteArray& wayland, const QByteArray& x,
                                const QByteArray& authorityOfX) {
    qputenv("WAYLAND_DISPLAY", wayland);
    qputenv("DISPLAY", x);
    if (!authorityOfX.isEmpty()) qputenv("XAUTHORITY", authorityOfX);
}

QString WaylandServer::writeTeller() const {
    const auto told = runFolder() + "/displays";
    QFile::remove(told);
    QFile program(runFolder() + "/tell-displays");
    program.open(QFile::WriteOnly);
    program.write("#!/bin/sh\necho \"$WAYLAND_DISPLAY $DISPLAY .\" > " + told.toUtf8() + "\n");
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return program.fileName();
}

bool WaylandServer::hasToldDisplays() {
    const auto told = contents(runFolder() + "/displays").split(' ');
    if (told.size() != 3) return false;
    useDisplays(told[0], told[1]);
    return true;
}

QByteArray WaylandServer::log() const {
    return contents(runFolder() + "/compositor.log");
}

void WaylandServer::end() {
    process_.end();
}

void WaylandServer::kill() {
    process_.kill();
    process_.waitForFinished();
}

void WaylandServer::stop() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void WaylandServer::resume() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

void WaylandServer::restart() {
    end();
    launch();
}

void WaylandServer::pressTogether(const std::vector<std::uint8_t>& keycodes) {
    for (const auto keycode : keycodes)
        press(keycode);
    for (auto last = keycodes.rbegin(); last != keycodes.rend(); ++last)
        release(*last);
}

void WaylandServer::type(std::initializer_list<std::uint8_t> keycodes) {
    for (const auto keycode : keycodes)
        pressTogether({keycode});
}

// It is asked again: the window may not be there yet.
bool WaylandServer::activate(const QString& window) {
    return waitUntil([&] {
        if (isInFront(window)) return true;
        ask(window);
        return isInFront(window);
    });
}

} // namespace quorvane
