#include "platform/linux/session/SessionKind.h"

#include <cstring>
#include <memory>
#include <string>

#include <QByteArray>
#include <gio/gio.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "platform/linux/dbus/GLibRefs.h"
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

/// A connection of its own: Qt's must not be made before there is an application object.
class BusNames {
public:
    BusNames() {
        const std::unique_ptr<char, decltype(&g_free)> address(
            g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr), g_free);
        if (!address) return;
        constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                    G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        bus_.reset(g_dbus_connection_new_for_address_sync(address.get(), flags, nullptr, nullptr, nullptr));
    }
    ~BusNames() {
        if (bus_) g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
    }
    BusNames(const BusNames&) = delete;
    BusNames& operator=(const BusNames&) = delete;

    bool hasOwner(const char* name) const {
        if (!bus_) return false;
        const GVariantRef answer(g_dbus_connection_call_sync(
            bus_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "NameHasOwner", g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE,
            longestAnswer, nullptr, nullptr));
        gboolean hasOwner = FALSE;
        if (answer) g_variant_get(answer.get(), "(b)", &hasOwner);
        return hasOwner;
    }

private:
    GObjectRef<GDBusConnection> bus_;
};

} // namespace

SessionKind sessionThere() {
    if (!hasWaylandDisplay()) return SessionKind::x11;
    if (answers(qgetenv("SWAYSOCK"))) return SessionKind::sway;
    const BusNames names;
    if (names.hasOwner("org.gnome.Shell")) return SessionKind::gnome;
    if (names.hasOwner("org.kde.KWin")) return SessionKind::kwin;
    return SessionKind::otherWayland;
}

} // namespace quorvane
