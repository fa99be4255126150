#include "virtual-desktop/KWinServer.h"

#include <stdexcept>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {
namespace {

constexpr auto userOfKWin = "user of KWin";

void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    file.open(QFile::WriteOnly);
    file.write(text);
}

} // namespace

KWinServer::KWinServer()
    : ScriptedServer("KDE")
    , user_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), userOfKWin))
    , scripts_(user_) {
    qputenv("KDE_FULL_SESSION", "true");
    qputenv("KDE_SESSION_VERSION", "5");
    const auto configuration = qEnvironmentVariable("XDG_CONFIG_HOME");
    write(configuration + "/kxkbrc", "[Layout]\nUse=true\nLayoutList=us,ru,de\n");
    write(configuration + "/kcminputrc", "[Keyboard]\nKeyRepeat=nothing\n");
    // It tells whom it lets press keys; nobody else sees these files.
    const auto applications = runFolder() + "/kwin/applications";
    QDir().mkpath(applications);
    write(applications + "/user.desktop",
          "[Desktop Entry]\nType=Application\nName=User\nNoDisplay=true\nExec=" +
              QCoreApplication::applicationFilePath().toUtf8() +
              "\nX-KDE-Wayland-Interfaces=org_kde_kwin_fake_input\n");
    // Where the installed file's capability is not to be had, it cannot be run. A copy has none.
    QFile::copy("/usr/bin/kwin_wayland", runFolder() + "/kwin/kwin_wayland");
    KWinServer::launch();
}

KWinServer::~KWinServer() {
    keyboard_.reset();
    end();
    QDBusConnection::disconnectFromBus(userOfKWin);
    qunsetenv("KDE_FULL_SESSION");
    qunsetenv("KDE_SESSION_VERSION");
}

void KWinServer::launch() {
    keyboard_.reset();
    start(runFolder() + "/kwin/kwin_wayland",
          {"--virtual", "--no-lockscreen", "--xwayland", "--socket", "wayland-kwin", "--width", "1280",
           "--height", "720", writeTeller()},
          {"XDG_DATA_DIRS=" + runFolder() + "/kwin:/usr/local/share:/usr/share",
           "KWIN_SCREENSHOT_NO_PERMISSION_CHECKS=1"},
          [this] {
              return hasToldDisplays() && callLayouts("getLayout").type() == QDBusMessage::ReplyMessage;
          });
    keyboard_.emplace();
    constexpr std::uint8_t shift = 50;
    pressTogether({shift}); // The seat has no keyboard before.
}

QDBusMessage KWinServer::callLayouts(const QString& method, const QVariantList& arguments) {
    auto call =
        QDBusMessage::createMethodCall("org.kde.keyboard", "/Layouts", "org.kde.KeyboardLayouts", method);
    call.setArguments(arguments);
    return user_.call(call, QDBus::Block, 5000);
}

unsigned KWinServer::layout() {
    return callLayouts("getLayout").arguments().value(0).toUInt();
}

void KWinServer::selectLayout(unsigned layout) {
    callLayouts("setLayout", {layout});
}

void KWinServer::saveScreenshot(const QString& path) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    auto call = QDBusMessage::createMethodCall("org.kde.KWin", "/org/kde/KWin/ScreenShot2",
                                               "org.kde.KWin.ScreenShot2", "CaptureWorkspace");
    call << QVariantMap() << QVariant::fromValue(QDBusUnixFileDescriptor(writing.number()));
    const auto answer = user_.call(call, QDBus::Block, 10000);
    call = {};
    writing = {};
    if (answer.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error(answer.errorMessage().toStdString());
    const auto facts = qdbus_cast<QVariantMap>(answer.arguments().value(0));
    QFile file;
    file.open(reading.number(), QFile::ReadOnly);
    const auto pixels = file.readAll();
    const QImage picture(reinterpret_cast<const uchar*>(pixels.constData()), facts["width"].toInt(),
                         facts["height"].toInt(), facts["stride"].toInt(),
                         static_cast<QImage::Format>(facts["format"].toInt()));
    if (!picture.save(path)) throw std::runtime_error("no picture of KWin's screen");
}

} // namespace quorvane
