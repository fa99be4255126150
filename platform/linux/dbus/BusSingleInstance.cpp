#include "platform/linux/dbus/BusSingleInstance.h"

#include <chrono>
#include <thread>
#include <utility>

#include <QDBusMessage>

#include "platform/linux/control/ControlAddress.h"

namespace quorvane {
namespace {

constexpr std::chrono::seconds longestWait(5);
constexpr std::chrono::milliseconds pause(5);
constexpr std::chrono::milliseconds longestAnswer(1000);

constexpr const char* activationToken = "XDG_ACTIVATION_TOKEN";

QString name() {
    return control_address::service() + ".Instance";
}

QString path() {
    return control_address::path() + "/Instance";
}

const QString reopenMethod = QStringLiteral("Reopen");

} // namespace

BusSingleInstance::BusSingleInstance(const QDBusConnection& bus) : bus_(bus) {
    // Before it has the name: whoever finds the name finds this.
    bus_.registerVirtualObject(path(), this);
}

BusSingleInstance::~BusSingleInstance() {
    bus_.unregisterObject(path());
}

bool BusSingleInstance::takeName() {
    constexpr unsigned doNotQueue = 4;
    constexpr unsigned isOwner = 1, isOwnerAlready = 4;
    auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName");
    request.setArguments({name(), doNotQueue});
    const auto answer = bus_.call(request, QDBus::Block, int(longestAnswer.count()));
    if (answer.type() != QDBusMessage::ReplyMessage) return true; // No bus, or one that hangs.
    const auto result = answer.arguments().value(0).toUInt();
    return result == isOwner || result == isOwnerAlready;
}

bool BusSingleInstance::askToReopen() {
    auto request = QDBusMessage::createMethodCall(name(), path(), name(), reopenMethod);
    request.setArguments({QString::fromLocal8Bit(qgetenv(activationToken))});
    return bus_.call(request, QDBus::Block, int(longestAnswer.count())).type() == QDBusMessage::ReplyMessage;
}

// The one that was found may end before it has heard: then this one takes its place, or asks who did.
bool BusSingleInstance::becomeTheOne(IfAnotherRuns ifAnotherRuns) {
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    for (;;) {
        if (takeName()) return true;
        const bool isDone = ifAnotherRuns == IfAnotherRuns::leaveIt || askToReopen();
        if (isDone || std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(pause);
    }
}

void BusSingleInstance::waitForTheOtherToEnd() {
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (!takeName() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(pause);
}

void BusSingleInstance::onReopen(const std::function<void()>& handler) {
    reopen_ = handler;
    if (std::exchange(isAsked_, false)) reopen_();
}

QString BusSingleInstance::introspect(const QString& /*path*/) const {
    return QStringLiteral("<interface name=\"%1\"><method name=\"Reopen\">"
                          "<arg name=\"activationToken\" type=\"s\" direction=\"in\"/>"
                          "</method></interface>")
        .arg(name());
}

bool BusSingleInstance::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.member() != reopenMethod || message.signature() != "s") return false;
    connection.send(message.createReply());
    const auto token = message.arguments().at(0).toString().toLocal8Bit();
    if (!token.isEmpty()) qputenv(activationToken, token);
    if (reopen_)
        reopen_();
    else
        isAsked_ = true;
    return true;
}

} // namespace quorvane
