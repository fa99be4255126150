#include "platform/linux/appearance/PortalColorScheme.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {
namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr int answerTimeout = 2000; // milliseconds

/// Portals wrap the value in one variant more than it needs, and newer ones may not.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

PreferredScheme schemeOf(const QVariant& value) {
    switch (unwrapped(value).toUInt()) {
    case 1:
        return PreferredScheme::dark;
    case 2:
        return PreferredScheme::light;
    default:
        return PreferredScheme::none;
    }
}

} // namespace

PortalColorScheme::PortalColorScheme(std::function<void()> changed) : changed_(std::move(changed)) {
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    sessionBus().connect(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                         QStringLiteral("NameOwnerChanged"), {portalService}, QString(), this,
                         SLOT(ownerChanged(QString, QString, QString)));
    // Whoever sent the signal: its value is not taken from there, but asked for.
    sessionBus().connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                         {appearance, colorScheme}, QString(), this, SLOT(ask()));
    ask();
}

void PortalColorScheme::ask() {
    auto question =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    question.setArguments({appearance, colorScheme});
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(sessionBus().asyncCall(question, answerTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        setPreferred(schemeOf(answer->reply().arguments().value(0)));
    });
}

void PortalColorScheme::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                                     const QString& newOwner) {
    // One that goes is about to be replaced, and has taken nothing back.
    if (!newOwner.isEmpty()) ask();
}

void PortalColorScheme::setPreferred(PreferredScheme preferred) {
    if (preferred == preferred_) return;
    preferred_ = preferred;
    changed_();
}

} // namespace quorvane
