#include "platform/linux/dbus/AsyncCall.h"

#include <utility>

#include <QDBusPendingCallWatcher>

namespace quorvane {

void callAsync(const QDBusConnection& bus, QDBusMessage call, QObject* context,
               std::function<void(const QDBusMessage& answer)> answered, int timeout) {
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, timeout), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, answered = std::move(answered)] {
                         watcher->deleteLater();
                         if (answered) answered(watcher->reply());
                     });
}

} // namespace quorvane
