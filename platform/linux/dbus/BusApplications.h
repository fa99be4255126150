#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QObject>

#include "platform/Signal.h"
#include "platform/linux/applications/BackgroundApplications.h"

class QDBusPendingCallWatcher;

namespace quorvane {

/// Applications that own their id as a name on the session bus: how an application makes itself known on
/// Linux, with or without a window. Whether a name is owned is asked once, without waiting for the answer,
/// and then kept up by the bus's own signals, for the names somebody is interested in and no others. Until
/// the bus has answered, nobody is known to own the name; a question that fails is asked again at the next
/// occasion.
class BusApplications : public QObject, public BackgroundApplications {
    Q_OBJECT

public:
    /// Interested in these from the start on, in others once they are asked about.
    explicit BusApplications(const std::vector<std::string>& ids = {});

    bool isRunning(std::string_view id) override;
    std::vector<std::string> ids() const override;
    Subscription onStart(std::function<void(std::string_view id)> handler) override;

private:
    struct Name {
        bool isOwned = false;
        bool isAsked = false; ///< An answer has come or will come.
    };

    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    Q_SLOT void disconnected();
    bool follow(std::string_view id); ///< Whether it is owned, as far as the bus has told.
    void listen(const QString& name);
    void ask(const std::string& id);
    void answered(const std::string& id, const QDBusPendingCallWatcher& answer);

    std::map<std::string, Name, std::less<>> names_;
    Signal<std::string_view> started_;
};

} // namespace quorvane
