#pragma once

#include <functional>

#include <QObject>

#include "platform/Signal.h"
#include "platform/linux/dbus/BusName.h"
#include "platform/linux/x11/XConnection.h"

class QDBusMessage;

namespace quorvane {

/// Finds out when a tray item may be made. Qt asks the desktop's watcher of status notifiers for its items
/// and waits for the answer, and it decides once for the life of the process whether there is one. So it is
/// asked here first, and nothing waits: an item is made when that watcher has answered, or when there is none
/// but a tray of the older kind. Whichever comes first counts, also long after the start.
class TrayReadiness : public QObject {
public:
    /// `ready` is called once, from the event loop. The connection must outlive this object; without one
    /// (null) there are no trays of the older kind.
    TrayReadiness(XConnection* x, std::function<void()> ready);

    /// There is no tray of either kind. One that does not answer is there.
    bool isMissing() const { return isMissing_; }
    Signal<> missingChanged; ///< From the event loop.

private:
    void toldOfWatcher();
    void askWatcher();
    void toldByWatcher(const QDBusMessage& answer);
    bool hasOlderTray() const;
    void lookForOlderTray();
    void watchForOlderTray();
    void setMissing(bool isMissing);
    void finish();

    XConnection* x_;
    std::function<void()> ready_; ///< Empty once it was called.
    BusName watcher_;             ///< Owned by somebody who answers or not.
    Subscription watchers_;
    bool isMissing_ = false;
    Subscription trays_;
};

} // namespace quorvane
