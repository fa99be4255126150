#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QObject>

#include "platform/Signal.h"
#include "platform/linux/applications/BackgroundApplications.h"

class QDBusMessage;

namespace quorvane {

/// Applications that own their id as a name on the session bus: how an application makes itself known on
/// Linux, with or without a window. Whether a name is owned is asked once and then kept up by the bus's own
/// signals, for the names somebody asked about and no others.
class BusApplications : public QObject, public BackgroundApplications {
    Q_OBJECT

public:
    bool isRunning(std::string_view id) const override;
    std::vector<std::string> ids() const override;
    Subscription onStart(std::function<void(std::string_view id)> handler) override;

private:
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    Q_SLOT void disconnected();
    bool isOwnedNow(const QString& name) const;

    mutable std::map<std::string, bool, std::less<>> owned_; // by name, for those asked about
    Signal<std::string_view> started_;
};

} // namespace quorvane
