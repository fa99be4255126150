#include "linux/support/AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QEventLoop>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString connectionName = QStringLiteral("accessible tree");
const QString sessionName = QStringLiteral("session of the accessible tree");

const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

// Numbers of the AT-SPI protocol.
constexpr int checked = 4, showing = 25;
constexpr unsigned screenCoordinates = 0;

constexpr int longestWait = 5000; // milliseconds

/// Stands in for the services that a program asks before it tells anybody anything: where the bus for that
/// is, and who keeps the list of programs.
class Registry : public QDBusVirtualObject {
public:
    explicit Registry(QString address) : address_(std::move(address)) {}

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        QVariant answer;
        if (message.member() == "GetAddress") answer = address_;
        if (message.member() == "Get") answer = QVariant::fromValue(QDBusVariant(true)); // it is enabled
        if (message.member() == "Embed") answer = desktop(connection);
        return answer.isValid() && connection.send(message.createReply(answer));
    }

private:
    static QVariant desktop(const QDBusConnection& connection) {
        QDBusArgument argument;
        argument.beginStructure();
        argument << connection.baseService() << QDBusObjectPath(rootPath);
        argument.endStructure();
        return QVariant::fromValue(argument);
    }

    QString address_;
};

} // namespace

AccessibleTree::AccessibleTree()
    : address_(QString::fromUtf8(busProcess_.startAndReadLine(
          "dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"})))
    , bus_(QDBusConnection::connectToBus(address_, connectionName))
    , registry_(std::make_unique<Registry>(address_)) {
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // Not `QDBusConnection::sessionBus()`, which stays with the first bus this process has known.
    auto session =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), sessionName);
    session.registerVirtualObject("/org/a11y/bus", registry_.get());
    session.registerService("org.a11y.Bus");
    bus_.registerVirtualObject(rootPath, registry_.get());
    bus_.registerService("org.a11y.atspi.Registry");
}

AccessibleTree::~AccessibleTree() {
    QDBusConnection::disconnectFromBus(connectionName);
    QDBusConnection::disconnectFromBus(sessionName);
}

namespace {

Accessible readReference(const QDBusArgument& from) {
    QString service;
    QDBusObjectPath path;
    from.beginStructure();
    from >> service >> path;
    from.endStructure();
    return {service, path.path()};
}

std::optional<Accessible> referenceIn(const QVariant& answer) {
    const auto argument = answer.value<QDBusArgument>();
    if (argument.currentType() != QDBusArgument::StructureType) return std::nullopt;
    return readReference(argument);
}

} // namespace

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

QList<Accessible> AccessibleTree::programs() {
    QList<Accessible> all;
    const auto names = bus_.interface()->registeredServiceNames().value();
    for (const auto& name : names) {
        if (name.startsWith(':') && name != bus_.baseService()) all.append({name, rootPath});
    }
    return all;
}

QList<Accessible> AccessibleTree::children(const Accessible& of) {
    QList<Accessible> all;
    const auto list = ask(of, accessible, "GetChildren").value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType) return all;
    list.beginArray();
    while (!list.atEnd())
        all.append(readReference(list));
    list.endArray();
    return all;
}

QString AccessibleTree::roleOf(const Accessible& of) {
    return ask(of, accessible, "GetRoleName").toString();
}

QString AccessibleTree::nameOf(const Accessible& of) {
    const auto name = ask(of, "org.freedesktop.DBus.Properties", "Get", {accessible, "Name"});
    return name.value<QDBusVariant>().variant().toString();
}

bool AccessibleTree::hasState(const Accessible& of, int bit) {
    const auto states = qdbus_cast<QList<unsigned>>(ask(of, accessible, "GetState"));
    return bit / 32 < states.size() && (states[bit / 32] >> (bit % 32) & 1) != 0;
}

QRect AccessibleTree::extents(const Accessible& of) {
    const auto told =
        ask(of, "org.a11y.atspi.Component", "GetExtents", {screenCoordinates}).value<QDBusArgument>();
    int x = 0, y = 0, width = 0, height = 0;
    if (told.currentType() != QDBusArgument::StructureType) return {};
    told.beginStructure();
    told >> x >> y >> width >> height;
    told.endStructure();
    return {x, y, width, height};
}

std::optional<Accessible> AccessibleTree::find(const QString& role, const QString& name) {
    auto waiting = programs();
    while (!waiting.isEmpty()) {
        const auto each = waiting.takeFirst();
        const bool isApplication = each.path.endsWith("/root");
        if (!isApplication && !hasState(each, showing)) continue;
        if (roleOf(each) == role && nameOf(each) == name) return each;
        if (roleOf(each) != "table") waiting.append(children(each));
    }
    return std::nullopt;
}

QRect AccessibleTree::placeOf(const QString& role, const QString& name) {
    return placeOf([&] { return find(role, name); });
}

QRect AccessibleTree::placeOf(const std::function<std::optional<Accessible>()>& found) {
    QRect place;
    waitUntil([&] {
        if (const auto now = found()) place = extents(*now);
        return !place.isEmpty();
    });
    return place;
}

std::optional<Accessible> AccessibleTree::cell(const QString& table, int row, int column) {
    const auto found = find("table", table);
    if (!found) return std::nullopt;
    return referenceIn(ask(*found, "org.a11y.atspi.Table", "GetAccessibleAt", {row, column}));
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
