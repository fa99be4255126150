#include "platform/linux/qt/NoTrayNotice.h"

#include <QDBusMessage>

#include "platform/linux/dbus/AsyncCall.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/localization/Localized.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

QDBusMessage notification() {
    constexpr unsigned replacesNone = 0;
    constexpr int usualTime = -1;
    const auto id =
        QString::fromUtf8(maker::bundleIdentifier.data(), qsizetype(maker::bundleIdentifier.size()));
    auto message =
        QDBusMessage::createMethodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                       "org.freedesktop.Notifications", "Notify");
    message << QStringLiteral("Quorvane") << replacesNone << id
            << localized("There is no place for Quorvane's icon on this desktop")
            << localized("To open its preferences, launch Quorvane once more.") << QStringList()
            << QVariantMap{{"desktop-entry", id}} << usualTime;
    return message;
}

} // namespace

NoTrayNotice::NoTrayNotice(TrayReadiness& tray, UserDefaults& defaults, std::chrono::milliseconds patience)
    : tray_(tray)
    , defaults_(defaults)
    , changes_(tray.missingChanged.connect([this] { changed(); })) {
    patience_.setSingleShot(true);
    patience_.setInterval(patience);
    QObject::connect(&patience_, &QTimer::timeout, this, [this] { tell(); });
}

void NoTrayNotice::changed() {
    if (tray_.isMissing() && !defaults_.boolForKey(key))
        patience_.start();
    else
        patience_.stop();
}

void NoTrayNotice::tell() {
    callAsync(sessionBus(), notification(), this, [this](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage) defaults_.setBool(true, key);
    });
}

} // namespace quorvane
