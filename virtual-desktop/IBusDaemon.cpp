#include "virtual-desktop/IBusDaemon.h"

#include <stdexcept>
#include <utility>

#include <csignal>
#include <cstdint>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

const QString daemonInterface = QStringLiteral("org.freedesktop.IBus");
const QString daemonPath = QStringLiteral("/org/freedesktop/IBus");

/// The engines and their settings are installed on the machine, not in the home of a test.
QProcessEnvironment environment() {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    return environment;
}

QByteArray valueInAddressFile(const QByteArray& key) {
    QFile file(IBusDaemon::addressFile());
    if (!file.open(QFile::ReadOnly)) return {};
    for (const auto& line : file.readAll().split('\n')) {
        if (line.startsWith(key + '=')) return line.mid(key.size() + 1);
    }
    return {};
}

/// Empty when the process has ended.
QByteArray commandOf(const QByteArray& process) {
    QFile command("/proc/" + process + "/cmdline");
    return command.open(QFile::ReadOnly) ? command.readAll() : QByteArray();
}

} // namespace

QString IBusDaemon::addressFile() {
    const auto wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    const auto display =
        wayland.isEmpty() ? qEnvironmentVariable("DISPLAY").section(':', 1).section('.', 0, 0) : wayland;
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/ibus/bus/" +
           QDBusConnection::localMachineId() + "-unix-" + display;
}

void IBusDaemon::start() {
    auto process = std::make_unique<ChildProcess>();
    process->setProcessEnvironment(environment());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->start("ibus-daemon", {"--replace", "--xim", "--panel=disable", "--emoji-extension=disable"});
    const auto isReady = [&] {
        return valueInAddressFile("IBUS_DAEMON_PID").toLongLong() == process->processId();
    };
    if (!process->waitForStarted() || !waitUntil(isReady))
        throw std::runtime_error("ibus-daemon does not start");
    process_ = std::move(process);
    disconnectClient();
    client_ = QDBusConnection::connectToBus(QString(valueInAddressFile("IBUS_ADDRESS")), clientName());
}

void IBusDaemon::end() {
    if (!process_) return;
    if (process_->state() == QProcess::Running) resume();
    process_->end();
    disconnectClient();
}

void IBusDaemon::kill() {
    const auto engines = processes();
    process_->kill();
    process_->waitForFinished();
    // They end by themselves, and until then could be taken for those of the next daemon.
    for (const auto& engine : engines)
        waitUntil([&] { return commandOf(engine).isEmpty(); });
    disconnectClient();
}

void IBusDaemon::stop() {
    ::kill(static_cast<pid_t>(process_->processId()), SIGSTOP);
}

void IBusDaemon::resume() {
    ::kill(static_cast<pid_t>(process_->processId()), SIGCONT);
}

/// Connections of the same name are one.
QString IBusDaemon::clientName() const {
    return QString("client of IBus %1").arg(reinterpret_cast<std::uintptr_t>(this));
}

void IBusDaemon::disconnectClient() {
    if (!client_) return;
    client_.reset();
    QDBusConnection::disconnectFromBus(clientName());
}

QDBusMessage IBusDaemon::call(const QString& interfaceName, const QString& method,
                              const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(daemonInterface, daemonPath, interfaceName, method);
    message.setArguments(arguments);
    return client_->call(message);
}

bool IBusDaemon::setGlobalEngine(const QString& engine) {
    return call(daemonInterface, "SetGlobalEngine", {engine}).type() == QDBusMessage::ReplyMessage;
}

QString IBusDaemon::globalEngine() {
    const auto answer =
        call("org.freedesktop.DBus.Properties", "Get", {daemonInterface, QStringLiteral("GlobalEngine")});
    if (answer.type() != QDBusMessage::ReplyMessage) return {};
    const auto boxed = answer.arguments().value(0).value<QDBusVariant>().variant().value<QDBusVariant>();
    const auto description = boxed.variant().value<QDBusArgument>();
    QString type;
    QVariantMap attachments;
    QString name;
    description.beginStructure();
    description >> type >> attachments >> name;
    while (!description.atEnd())
        description.asVariant(); // A structure that is not read to its end leaks.
    description.endStructure();
    return name;
}

QString IBusDaemon::currentInputContext() {
    const auto answer = call("org.freedesktop.DBus.Properties", "Get",
                             {daemonInterface, QStringLiteral("CurrentInputContext")});
    const auto path =
        answer.arguments().value(0).value<QDBusVariant>().variant().value<QDBusObjectPath>().path();
    // The daemon made the first one for itself: it has the focus while no program's has.
    return path.endsWith("/InputContext_1") ? QString() : path;
}

QByteArrayList IBusDaemon::processes() const {
    QFile children(QString("/proc/%1/task/%1/children").arg(process_->processId()));
    return children.open(QFile::ReadOnly) ? children.readAll().trimmed().split(' ') : QByteArrayList();
}

bool IBusDaemon::killEngine(const QString& program) {
    for (const auto& child : processes()) {
        if (!commandOf(child).contains(program.toUtf8())) continue;
        if (::kill(static_cast<pid_t>(child.toLongLong()), SIGKILL) != 0) return false;
        // Before the daemon has noticed, it would go on to wait for this process.
        return waitUntil([&] { return !QFile::exists("/proc/" + child); });
    }
    return false;
}

void IBusDaemon::setPreloadEngines(const QStringList& engines) {
    set("general", "preload-engines",
        engines.isEmpty() ? QString("@as []") : "['" + engines.join("','") + "']");
}

void IBusDaemon::set(const QString& schema, const QString& key, const QString& value) {
    QProcess setting;
    setting.setProcessEnvironment(environment());
    setting.start("gsettings", {"set", "org.freedesktop.ibus." + schema, key, value});
    if (!setting.waitForFinished() || setting.exitCode() != 0)
        throw std::runtime_error("gsettings does not set " + key.toStdString());
}

} // namespace quorvane
