#include "platform/linux/dbus/AsyncCall.h"

#include <utility>

#include <QDBusError>
#include <QDBusPendingCallWatcher>

namespace quorvane {

void callAsync(const QDBusConnection& bus, QDBusMessage call, QObject* context,
               std::function<void(const QDBusMessage& answer)> answered, int timeout) {
    if (!bus.isConnected()) { // Qt answers nothing then.
        if (!answered) return;
        const auto error = call.createErrorReply(QDBusError::Disconnected, QStringLiteral("there is no bus"));
        QMetaObject::invokeMethod(
            context, [error, answered = std::move(answered)] { answered(error); }, Qt::QueuedConnection);
        return;
    }
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, timeout), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         if (answered) answered(watcher->reply());
                     });
}

} // namespace quorvane
