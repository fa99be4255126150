#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include "platform/Signal.h"
#include "platform/linux/session/ShellMessages.h"

namespace quorvane {

/// The script inside KWin that tells of its windows: loaded into the KWin that is there and, when that has
/// gone, into the next one, and unloaded with this object. Nothing is installed for it.
class KWinScript : public QObject {
public:
    /// The messages must outlive this object.
    KWinScript(const QDBusConnection& bus, ShellMessages& messages);
    ~KWinScript() override;

    Signal<> starts; ///< All there is will be told anew.

private:
    void load();
    void loadFile();
    void start();
    void failed();
    bool writeFile() const;

    QDBusConnection bus_;
    QString file_;
    bool isLoading_ = false;
    int failures_ = 0; ///< One after the other.
    Subscription arrivals_;
};

} // namespace quorvane
