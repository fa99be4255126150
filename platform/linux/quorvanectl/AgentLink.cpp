#include "platform/linux/quorvanectl/AgentLink.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusVariant>

#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/dbus/DBusPropertyList.h"

namespace quorvane {
namespace {

constexpr int longestAnswer = 10'000; // milliseconds

bool saysNobodyIsThere(const QDBusMessage& answer) {
    return answer.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown" ||
           answer.errorName() == "org.freedesktop.DBus.Error.NameHasNoOwner";
}

} // namespace

AgentLink::AgentLink() : bus_(QDBusConnection::sessionBus()) {}

std::optional<CommandResult> AgentLink::run(const std::string& command, const CommandRequest& request) {
    if (!bus_.isConnected()) return std::nullopt;
    QStringList arguments{QString::fromStdString(command)};
    for (const auto& argument : request.arguments)
        arguments << QString::fromStdString(argument);
    const auto document = PropertyList().with(control_address::documentEntry.toStdString(), request.document);
    auto call = QDBusMessage::createMethodCall(control_address::service(), control_address::path(),
                                               control_address::interface(), control_address::runMethod);
    call.setArguments({arguments, toDBus(document)});
    call.setAutoStartService(false);
    const auto answer = bus_.call(call, QDBus::Block, longestAnswer);
    if (saysNobodyIsThere(answer)) return std::nullopt;
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "iv")
        return commandFailure(CommandStatus::failed,
                              "Quorvane does not answer: " + answer.errorMessage().toStdString());
    return CommandResult{static_cast<CommandStatus>(answer.arguments().at(0).toInt()),
                         fromDBus(answer.arguments().at(1))};
}

bool AgentLink::watch(std::function<void(const PropertyList&)> handler) {
    handler_ = std::move(handler);
    return bus_.isConnected() &&
           bus_.connect(control_address::service(), control_address::path(), control_address::interface(),
                        control_address::decidedSignal, this, SLOT(decided(QDBusMessage)));
}

void AgentLink::decided(const QDBusMessage& message) {
    handler_(fromDBus(message.arguments().value(0)));
}

} // namespace quorvane
