#include "platform/linux/appearance/PortalColorScheme.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusVariant>

#include "platform/linux/dbus/AsyncCall.h"
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

PortalColorScheme::PortalColorScheme(std::function<void()> changed)
    : changed_(std::move(changed))
    , portal_(sessionBus(), portalService)
    // One that goes is about to be replaced, and has taken nothing back.
    , owners_(portal_.told.connect([this](const auto& /*before*/) {
        if (portal_.isOwned()) ask();
    })) {
    // Whoever sent the signal: its value is not taken from there, but asked for.
    sessionBus().connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                         {appearance, colorScheme}, QString(), this, SLOT(ask()));
}

void PortalColorScheme::ask() {
    auto question =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    question.setArguments({appearance, colorScheme});
    callAsync(
        sessionBus(), question, this,
        [this](const QDBusMessage& answer) { setPreferred(schemeOf(answer.arguments().value(0))); },
        answerTimeout);
}

void PortalColorScheme::setPreferred(PreferredScheme preferred) {
    if (preferred == preferred_) return;
    preferred_ = preferred;
    changed_();
}

} // namespace quorvane
