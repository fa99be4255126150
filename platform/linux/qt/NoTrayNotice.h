#pragma once

#include <chrono>

#include <QObject>
#include <QTimer>

#include "platform/UserDefaults.h"
#include "platform/linux/qt/TrayReadiness.h"

namespace quorvane {

/// Tells the user of a desktop without a tray, in a notification and once ever, how the window is reached.
/// It is remembered once a server has taken the notification; where none runs, none is started for it.
class NoTrayNotice : public QObject {
public:
    /// Under it, in the defaults, stands that the user was told: a boolean, only ever set to true.
    static constexpr std::string_view key = "toldThatThereIsNoTray";

    /// A tray counts as missing after `patience`: panels start with the session, as this program does. Tray
    /// and defaults must outlive this object.
    NoTrayNotice(TrayReadiness& tray, UserDefaults& defaults,
                 std::chrono::milliseconds patience = std::chrono::seconds(10));

private:
    void changed();
    void tell();

    TrayReadiness& tray_;
    UserDefaults& defaults_;
    QTimer patience_;
    Subscription changes_;
};

} // namespace quorvane
