#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>

namespace quorvane {

/// Stands in for the desktop portal on the session bus of now. It knows one setting: 1 is dark, 2 light.
class Portal : public QDBusVirtualObject {
public:
    explicit Portal(unsigned scheme) : scheme_(scheme) {
        bus_.registerVirtualObject(path, this);
        bus_.registerService("org.freedesktop.portal.Desktop");
    }
    ~Portal() override {
        // Qt closes connections in a thread of its own, and touches there what is registered, dying or not.
        bus_.unregisterObject(path);
        QDBusConnection::disconnectFromBus("portal");
    }

    void change(unsigned scheme) {
        scheme_ = scheme;
        auto signal = QDBusMessage::createSignal(path, "org.freedesktop.portal.Settings", "SettingChanged");
        bus_.send(signal << "org.freedesktop.appearance"
                         << "color-scheme" << wrapped());
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        return message.member() == "Read" && bus.send(message.createReply(wrapped()));
    }

private:
    QVariant wrapped() const {
        return QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(scheme_))));
    }

    const QString path = "/org/freedesktop/portal/desktop";
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "portal");
    unsigned scheme_;
};

} // namespace quorvane
