#include "virtual-desktop/GnomeServer.h"

#include <stdexcept>

#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr auto userOfGnome = "user of GNOME";
constexpr auto uuidOfUser = "gnome-user@quorvane";

void install(const GnomeServer::Extension& extension) {
    const QDir from(extension.folder);
    const auto to = qEnvironmentVariable("XDG_DATA_HOME") + "/gnome-shell/extensions/" + extension.uuid;
    QDir().mkpath(to);
    for (const auto& name : from.entryList(QDir::Files))
        QFile::copy(from.filePath(name), to + "/" + name);
}

} // namespace

GnomeServer::GnomeServer(const std::vector<Extension>& extensions)
    : ScriptedServer("GNOME")
    , user_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), userOfGnome)) {
    QStringList enabled{"'" + QString(uuidOfUser) + "'"};
    install({QUORVANE_VIRTUAL_DESKTOP "/" + QString(uuidOfUser), uuidOfUser});
    for (const auto& extension : extensions) {
        install(extension);
        enabled << "'" + extension.uuid + "'";
    }
    const auto settings = qEnvironmentVariable("XDG_CONFIG_HOME") + "/glib-2.0/settings";
    QDir().mkpath(settings);
    QFile file(settings + "/keyfile");
    file.open(QFile::WriteOnly);
    file.write("[org/gnome/shell]\nenabled-extensions=[" + enabled.join(',').toUtf8() +
               "]\nwelcome-dialog-last-shown-version='999'\n"
               "[org/gnome/desktop/input-sources]\nsources=[('xkb','us'),('xkb','ru'),('xkb','de')]\n"
               "[org/gnome/desktop/peripherals/keyboard]\nrepeat=false\n"
               "[org/gnome/desktop/interface]\nenable-animations=false\n");
    file.close();
    qputenv("GSETTINGS_BACKEND", "keyfile");
    GnomeServer::launch();
}

GnomeServer::~GnomeServer() {
    end();
    QDBusConnection::disconnectFromBus(userOfGnome);
    qunsetenv("GSETTINGS_BACKEND");
}

void GnomeServer::launch() {
    constexpr auto display = "wayland-gnome";
    start("gnome-shell",
          {"--headless", "--virtual-monitor", "1280x720", QString("--wayland-display=") + display}, {},
          [this] { return log().contains("GNOME Shell started"); });
    setOverview(false); // With which a session begins.
    const auto displays = call("displays").toArray();
    useDisplays(display, displays[0].toString().toUtf8(), displays[1].toString().toUtf8());
    constexpr std::uint8_t shift = 50;
    pressTogether({shift}); // The seat has no keyboard before.
}

QJsonValue GnomeServer::evaluate(const QString& expression) {
    auto message = QDBusMessage::createMethodCall("user.of.gnome", "/user", "user.of.gnome", "Evaluate");
    const auto answer = user_.call(message << expression, QDBus::Block, 10000);
    return QJsonDocument::fromJson(answer.arguments().value(0).toString().toUtf8()).array().at(0);
}

void GnomeServer::setOverview(bool isOpen) {
    const bool isDone = waitUntil([&] {
        call("setOverview", {isOpen});
        return call("isOverviewOpen").toBool(!isOpen) == isOpen;
    });
    if (!isDone) throw std::runtime_error("the overview does not obey");
}

void GnomeServer::set(const QString& schema, const QString& key, const QString& value) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_DIRS", "/usr/local/share:/usr/share"); // the schemas
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start("gsettings", {"set", schema, key, value});
    if (!process.waitForFinished() || process.exitCode() != 0) throw std::runtime_error("gsettings fails");
}

unsigned GnomeServer::layout() {
    return static_cast<unsigned>(call("layout").toInt());
}

void GnomeServer::selectLayout(unsigned layout) {
    call("selectLayout", {static_cast<int>(layout)});
}

void GnomeServer::send(std::uint8_t keycode, bool isPressed) {
    constexpr int firstKeycode = 8; // of the hardware's numbers; GNOME's begin with 0
    call("send", {keycode - firstKeycode, isPressed});
}

void GnomeServer::saveScreenshot(const QString& path) {
    if (!call("saveScreenshot", {path}).toBool()) throw std::runtime_error("no picture of GNOME's screen");
}

} // namespace quorvane
