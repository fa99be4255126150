#include "virtual-desktop/Fcitx5Daemon.h"

#include <csignal>
#include <stdexcept>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

const QString service = QStringLiteral("org.fcitx.Fcitx5");
const QString connectionName = QStringLiteral("user of Fcitx5");

void write(const QString& name, const QByteArray& contents) {
    const QDir folder(qEnvironmentVariable("XDG_CONFIG_HOME") + "/fcitx5");
    folder.mkpath("conf");
    QFile file(folder.filePath(name));
    if (!file.open(QFile::WriteOnly) || file.write(contents) < 0)
        throw std::runtime_error("cannot write " + file.fileName().toStdString());
}

} // namespace

Fcitx5Daemon::Fcitx5Daemon(const Settings& settings)
    : bus_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), connectionName)) {
    qDBusRegisterMetaType<Items::value_type>();
    qDBusRegisterMetaType<Items>();
    QByteArray profile =
        "[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=" + settings.inputMethods.back().toUtf8() +
        "\n";
    for (qsizetype place = 0; place < settings.inputMethods.size(); ++place)
        profile += "[Groups/0/Items/" + QByteArray::number(place) +
                   "]\nName=" + settings.inputMethods[place].toUtf8() + "\nLayout=\n";
    write("profile", profile + "[GroupOrder]\n0=Default\n");
    write("config", "[Behavior]\nShareInputState=" + settings.shareInputState.toUtf8() + "\n");
    if (settings.keepsLayouts)
        write("conf/xcb.conf", "Allow Overriding System XKB Settings=False\nAlwaysSetToGroupLayout=False\n");
}

Fcitx5Daemon::~Fcitx5Daemon() {
    end();
    QDBusConnection::disconnectFromBus(connectionName);
}

void Fcitx5Daemon::start() {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/local/share:/usr/share"); // its input methods
    auto process = std::make_unique<ChildProcess>();
    process->setProcessEnvironment(environment);
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->start("fcitx5",
                   {"-r", "--disable=wayland,waylandim,clipboard,notifications,kimpanel,ibusfrontend"});
    if (!process->waitForStarted()) throw std::runtime_error("no Fcitx5");
    const auto id = uint(process->processId());
    const bool isReady = waitUntil([&] {
        const auto owner =
            call("/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID", {service});
        return owner.arguments().value(0).toUInt() == id &&
               control("CurrentInputMethodGroup").type() == QDBusMessage::ReplyMessage;
    });
    if (!isReady) throw std::runtime_error("Fcitx5 does not start");
    process_ = std::move(process);
}

void Fcitx5Daemon::end() {
    if (process_) process_->end();
}

void Fcitx5Daemon::kill() {
    process_->kill();
    process_->waitForFinished();
}

void Fcitx5Daemon::stop() {
    ::kill(pid_t(process_->processId()), SIGSTOP);
}

void Fcitx5Daemon::resume() {
    ::kill(pid_t(process_->processId()), SIGCONT);
}

void Fcitx5Daemon::select(const QString& inputMethod) {
    control("SetCurrentIM", {inputMethod});
}

QString Fcitx5Daemon::inputMethod() {
    return control("CurrentInputMethod").arguments().value(0).toString();
}

void Fcitx5Daemon::setInputMethods(const QStringList& inputMethods) {
    Items items;
    for (const auto& inputMethod : inputMethods)
        items.append({inputMethod, {}});
    control("SetInputMethodGroupInfo", {"Default", "us", QVariant::fromValue(items)});
}

QDBusMessage Fcitx5Daemon::control(const QString& method, const QVariantList& arguments) {
    return call("/controller", "org.fcitx.Fcitx.Controller1", method, arguments);
}

QDBusMessage Fcitx5Daemon::call(const QString& path, const QString& interfaceName, const QString& method,
                                const QVariantList& arguments) {
    const bool isForBus = interfaceName == "org.freedesktop.DBus";
    auto message =
        QDBusMessage::createMethodCall(isForBus ? interfaceName : service, path, interfaceName, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return bus_.call(message, QDBus::Block, 5000);
}

} // namespace quorvane
