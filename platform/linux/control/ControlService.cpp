#include "platform/linux/control/ControlService.h"

#include <utility>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QVariant>

#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/dbus/DBusPropertyList.h"

namespace quorvane {
namespace {

constexpr auto introspection = R"(
  <interface name="%1">
    <!-- A command of quorvanectl. A status other than 0 is a failure, whose reason is in the result. -->
    <method name="Run">
      <arg name="arguments" type="as" direction="in"/>
      <arg name="document" type="a{sv}" direction="in"/>
      <arg name="status" type="i" direction="out"/>
      <arg name="result" type="v" direction="out"/>
    </method>
    <!-- The input source of an application was decided. -->
    <signal name="Decided">
      <arg name="decision" type="a{sv}"/>
    </signal>
  </interface>
)";

} // namespace

ControlService::ControlService(const QDBusConnection& bus, AgentCommands& commands)
    : bus_(bus)
    , commands_(commands)
    , decisions_(commands.decided.connect([this](const PropertyList& decision) { tell(decision); })) {
    if (!bus_.isConnected()) return;
    bus_.registerVirtualObject(control_address::path(), this);
    takeName(bus_);
}

void ControlService::takeName(const QDBusConnection& bus) {
    auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName");
    // While another instance has it, as at a relaunch, the bus lets this one wait in line.
    request.setArguments({control_address::service(), 0U});
    bus.asyncCall(request);
}

ControlService::~ControlService() {
    bus_.unregisterObject(control_address::path());
}

QString ControlService::introspect(const QString& path) const {
    return path == control_address::path() ? QString(introspection).arg(control_address::interface())
                                           : QString();
}

bool ControlService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const bool isOurs = message.interface().isEmpty() || message.interface() == control_address::interface();
    if (!isOurs || message.member() != control_address::runMethod) return false;
    const auto reply = message.signature() == "asa{sv}"
                           ? run(message)
                           : message.createErrorReply(QDBusError::InvalidArgs, "Run takes (asa{sv})");
    return connection.send(reply);
}

QDBusMessage ControlService::run(const QDBusMessage& message) {
    auto arguments = message.arguments().at(0).toStringList();
    const auto document = fromDBus(message.arguments().at(1));
    const auto command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    CommandRequest request{{}, document[control_address::documentEntry.toStdString()]};
    for (const auto& argument : std::as_const(arguments))
        request.arguments.push_back(argument.toStdString());
    const auto result = commands_.run(command.toStdString(), request);
    return message.createReply(QVariantList{static_cast<int>(result.status),
                                            QVariant::fromValue(QDBusVariant(toDBus(result.document)))});
}

void ControlService::tell(const PropertyList& decision) {
    auto signal = QDBusMessage::createSignal(control_address::path(), control_address::interface(),
                                             control_address::decidedSignal);
    signal.setArguments({toDBus(decision)});
    bus_.send(signal);
}

} // namespace quorvane
