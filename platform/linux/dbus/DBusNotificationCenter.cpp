#include "platform/linux/dbus/DBusNotificationCenter.h"

#include <utility>

#include <QDBusMessage>

#include "platform/linux/dbus/DBusPropertyList.h"
#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {
namespace {

const QString objectPath = QStringLiteral("/DistributedNotifications");
const QString signalName = QStringLiteral("Posted");

} // namespace

DBusNotificationCenter::DBusNotificationCenter(std::string_view interfaceName,
                                               std::function<void()> beforePost)
    : interface_(QString::fromUtf8(interfaceName.data(), qsizetype(interfaceName.size())))
    , beforePost_(std::move(beforePost)) {}

Subscription
DBusNotificationCenter::addObserver(std::string_view name,
                                    std::function<void(const DistributedNotification&)> handler) {
    const auto [entry, isNew] = observed_.try_emplace(std::string(name));
    if (isNew) subscribe(entry->first);
    return entry->second.connect(std::move(handler));
}

/// The bus sends a program its own signals too, when they match: own posts come back this way. Whatever
/// follows the name is looked at on arrival: scripts may leave the user info out, or send another type of
/// dictionary.
void DBusNotificationCenter::subscribe(const std::string& name) {
    sessionBus().connect(QString(), objectPath, interface_, signalName, {QString::fromStdString(name)},
                         QString(), this, SLOT(received(QDBusMessage)));
}

void DBusNotificationCenter::post(const DistributedNotification& notification) {
    beforePost_();
    auto message = QDBusMessage::createSignal(objectPath, interface_, signalName);
    message << QString::fromStdString(notification.name) << toDBus(notification.userInfo).toMap();
    sessionBus().send(message);
}

void DBusNotificationCenter::deliverLocally(DistributedNotification notification) {
    QMetaObject::invokeMethod(
        this,
        [this, notification = std::move(notification)] {
            const auto observers = observed_.find(notification.name);
            if (observers != observed_.end()) observers->second.emit(notification);
        },
        Qt::QueuedConnection);
}

void DBusNotificationCenter::received(const QDBusMessage& message) {
    const auto arguments = message.arguments();
    const auto observers = observed_.find(arguments.value(0).toString().toStdString());
    if (observers == observed_.end()) return;
    auto userInfo = fromDBus(arguments.value(1));
    const auto* entries = userInfo.dictionary();
    if (!entries && !userInfo.isNothing()) return;
    if (entries && entries->empty()) userInfo = {};
    observers->second.emit({observers->first, std::move(userInfo)});
}

} // namespace quorvane
