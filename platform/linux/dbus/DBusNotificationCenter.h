#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include <QObject>

#include "platform/DistributedNotificationCenter.h"
#include "platform/Signal.h"

class QDBusMessage;

namespace quorvane {

/// Notifications as signals on the session bus: the signal `Posted` with the notification's name and its user
/// info, `(sa{sv})`. Only signals with observed names are asked for, so that no other traffic on the bus
/// wakes the program.
class DBusNotificationCenter : public QObject, public DistributedNotificationCenter {
    Q_OBJECT

public:
    /// `interfaceName` is what the maker's programs have agreed on. `beforePost` makes what was written to
    /// the user's defaults visible to others.
    DBusNotificationCenter(std::string_view interfaceName, std::function<void()> beforePost);

    Subscription addObserver(std::string_view name,
                             std::function<void(const DistributedNotification&)> handler) override;
    void post(const DistributedNotification& notification) override;

    /// Delivers a notification of the desktop itself, from the event loop and to this process only; needs no
    /// bus.
    void deliverLocally(DistributedNotification notification);

private:
    Q_SLOT void received(const QDBusMessage& message);
    void subscribe(const std::string& name);

    QString interface_;
    std::function<void()> beforePost_;
    std::map<std::string, Signal<const DistributedNotification&>, std::less<>> observed_; // by name
};

} // namespace quorvane
