#include "platform/linux/session/SessionKind.h"

#include <cstring>

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <sys/socket.h>
#include <sys/un.h>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {
namespace {

constexpr int longestAnswer = 500; // milliseconds

/// Whether somebody listens there.
bool answers(const QByteArray& socketPath) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socketPath.isEmpty() || socketPath.size() >= qsizetype(sizeof(address.sun_path))) return false;
    std::memcpy(address.sun_path, socketPath.constData(), std::size_t(socketPath.size()));
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return socket.isOpen() &&
           connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

bool hasWaylandDisplay() {
    const auto name = qgetenv("WAYLAND_DISPLAY");
    if (name.isEmpty()) return false;
    return answers(name.startsWith('/') ? name : qgetenv("XDG_RUNTIME_DIR") + '/' + name);
}

/// The names on the session bus. By a connection of its own: the process's must not be made before there is
/// an application object.
class BusNames {
public:
    BusNames() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName)) {}
    ~BusNames() { QDBusConnection::disconnectFromBus(connectionName); }
    BusNames(const BusNames&) = delete;
    BusNames& operator=(const BusNames&) = delete;

    bool have(const QString& name) const {
        auto question = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                       "org.freedesktop.DBus", "NameHasOwner");
        question.setArguments({name});
        return bus_.call(question, QDBus::Block, longestAnswer).arguments().value(0).toBool();
    }

private:
    static inline const QString connectionName = QStringLiteral("quorvane-session-kind");

    QDBusConnection bus_;
};

} // namespace

SessionKind sessionThere() {
    if (!hasWaylandDisplay()) return SessionKind::x11;
    if (answers(qgetenv("SWAYSOCK"))) return SessionKind::sway;
    const BusNames names;
    if (names.have("org.gnome.Shell")) return SessionKind::gnome;
    if (names.have("org.kde.KWin")) return SessionKind::kwin;
    return SessionKind::otherWayland;
}

} // namespace quorvane
