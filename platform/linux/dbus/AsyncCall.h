#pragma once

#include <functional>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

namespace quorvane {

/// Calls a method without waiting and without starting the service. `answered` gets the answer, which may be
/// an error, from the event loop, unless the context has ended. After the timeout, in milliseconds, the
/// answer is an error; -1 is what is usual on the bus, half a minute.
void callAsync(const QDBusConnection& bus, QDBusMessage call, QObject* context,
               std::function<void(const QDBusMessage& answer)> answered = {}, int timeout = -1);

} // namespace quorvane
