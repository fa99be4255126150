#include "linux/support/AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDBusVariant>
#include <QEventLoop>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

const QString accessible = "org.a11y.atspi.Accessible";
const QString connectionName = "accessible tree", sessionName = "session of the accessible tree";
const QString rootPath = "/org/a11y/atspi/accessible/root", sessionPath = "/org/a11y/bus";

// Numbers of the AT-SPI protocol.
constexpr int checked = 4, showing = 25;
constexpr unsigned screenCoordinates = 0;

constexpr int longestWait = 5000; // milliseconds

} // namespace

/// Where Qt looks for it: beside the type.
static const QDBusArgument& operator>>(const QDBusArgument& from, Accessible& reference) {
    QDBusObjectPath path;
    from.beginStructure();
    from >> reference.service >> path;
    from.endStructure();
    reference.path = path.path();
    return from;
}

AccessibleTree::AccessibleTree()
    : address_(QString::fromUtf8(busProcess_.startAndReadLine(
          "dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"})))
    , bus_(QDBusConnection::connectToBus(address_, connectionName)) {
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // Not `QDBusConnection::sessionBus()`, which stays with the first bus this process has known.
    auto session =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), sessionName);
    session.registerVirtualObject(sessionPath, this);
    session.registerService("org.a11y.Bus");
    bus_.registerVirtualObject(rootPath, this);
    bus_.registerService("org.a11y.atspi.Registry");
}

AccessibleTree::~AccessibleTree() {
    // Qt closes a connection in a thread of its own, and looks there at the objects that it still knows.
    bus_.unregisterObject(rootPath);
    QDBusConnection(sessionName).unregisterObject(sessionPath);
    QDBusConnection::disconnectFromBus(connectionName);
    QDBusConnection::disconnectFromBus(sessionName);
}

bool AccessibleTree::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    QVariant answer;
    if (message.member() == "GetAddress") answer = address_;
    if (message.member() == "Get") answer = QVariant::fromValue(QDBusVariant(true)); // it is enabled
    if (message.member() == "Embed") {
        QDBusArgument desktop;
        desktop.beginStructure();
        desktop << connection.baseService() << QDBusObjectPath(rootPath);
        desktop.endStructure();
        answer = QVariant::fromValue(desktop);
    }
    return answer.isValid() && connection.send(message.createReply(answer));
}

QVariant AccessibleTree::ask(const Accessible& whom, const QString& interface, const QString& method,
                             const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(whom.service, whom.path, interface, method);
    call.setArguments(arguments);
    // The program may be asking the registry, which is here, at the same time: so events are handled
    // meanwhile.
    const QDBusPendingCallWatcher answer(bus_.asyncCall(call, longestWait));
    QEventLoop loop;
    QObject::connect(&answer, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    return answer.reply().arguments().value(0);
}

bool AccessibleTree::hasState(const Accessible& of, int bit) {
    const auto states = qdbus_cast<QList<unsigned>>(ask(of, accessible, "GetState"));
    return bit / 32 < states.size() && (states[bit / 32] >> (bit % 32) & 1) != 0;
}

QString AccessibleTree::nameOf(const Accessible& of) {
    const auto name = ask(of, "org.freedesktop.DBus.Properties", "Get", {accessible, "Name"});
    return name.value<QDBusVariant>().variant().toString();
}

std::optional<Accessible> AccessibleTree::find(const QString& role, const QString& name) {
    QList<Accessible> waiting;
    const auto programs = bus_.interface()->registeredServiceNames().value();
    for (const auto& program : programs)
        if (program.startsWith(':') && program != bus_.baseService()) waiting.append({program, rootPath});
    while (!waiting.isEmpty()) {
        const auto each = waiting.takeFirst();
        if (each.path != rootPath && !hasState(each, showing)) continue;
        const auto itsRole = ask(each, accessible, "GetRoleName").toString();
        if (itsRole == role && nameOf(each) == name) return each;
        if (itsRole != "table")
            waiting.append(qdbus_cast<QList<Accessible>>(ask(each, accessible, "GetChildren")));
    }
    return std::nullopt;
}

std::optional<Accessible> AccessibleTree::cell(const QString& table, int row, int column) {
    const auto found = find("table", table);
    if (!found) return std::nullopt;
    const auto cell =
        qdbus_cast<Accessible>(ask(*found, "org.a11y.atspi.Table", "GetAccessibleAt", {row, column}));
    return cell.service.isEmpty() ? std::nullopt : std::optional(cell);
}

QRect AccessibleTree::placeOf(const std::function<std::optional<Accessible>()>& found) {
    QRect place;
    waitUntil([&] {
        if (const auto now = found())
            place =
                qdbus_cast<QRect>(ask(*now, "org.a11y.atspi.Component", "GetExtents", {screenCoordinates}));
        return !place.isEmpty();
    });
    return place;
}

QRect AccessibleTree::placeOf(const QString& role, const QString& name) {
    return placeOf([&] { return find(role, name); });
}

QRect AccessibleTree::placeOfCell(const QString& table, int row, int column) {
    return placeOf([&] { return cell(table, row, column); });
}

QString AccessibleTree::nameOfCell(const QString& table, int row, int column) {
    const auto found = cell(table, row, column);
    return found ? nameOf(*found) : QString();
}

bool AccessibleTree::isChecked(const QString& role, const QString& name) {
    const auto found = find(role, name);
    return found && hasState(*found, checked);
}

} // namespace quorvane
