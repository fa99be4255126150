#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>

namespace quorvane {

/// Stands in for the desktop's watcher of status notifiers, on the session bus of now. It answers nobody
/// until it is told to.
class TrayWatcher : public QDBusVirtualObject {
public:
    TrayWatcher() {
        bus_.registerVirtualObject("/StatusNotifierWatcher", this);
        bus_.registerService(name);
    }
    ~TrayWatcher() override { QDBusConnection::disconnectFromBus("watcher"); }

    void startAnswering() {
        isAnswering_ = true;
        for (const auto& message : std::exchange(unanswered_, {}))
            answer(message);
    }

    /// The connection that has shown an item last; empty as long as none has. Input method daemons have
    /// items, too.
    const QString& item() const { return item_; }
    void choose(qint64 process) {
        for (const auto& each : items_)
            if (bus_.interface()->servicePid(each) == process) item_ = each;
    }

    QDBusMessage askItem(const QString& interface, const QString& method, const QVariantList& arguments) {
        auto question = QDBusMessage::createMethodCall(item_, "/StatusNotifierItem", interface, method);
        question.setArguments(arguments);
        return bus_.call(question);
    }
    QVariant property(const QString& propertyName) {
        const auto answer =
            askItem("org.freedesktop.DBus.Properties", "Get", {"org.kde.StatusNotifierItem", propertyName});
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }
    QString toolTip() {
        const auto told = property("ToolTip").value<QDBusArgument>();
        QString icon, title;
        told.beginStructure();
        told >> icon;
        told.asVariant(); // its pixels
        told >> title;
        while (!told.atEnd())
            told.asVariant(); // A structure that is not read to its end leaks.
        told.endStructure();
        return title;
    }

    QString introspect(const QString& /*path*/) const override {
        return "<interface name='" + name +
               "'><property name='IsStatusNotifierHostRegistered' type='b' access='read'/></interface>";
    }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
        if (message.member() == "Introspect") return !isAnswering_;
        isAnswering_ ? answer(message) : unanswered_.append(message);
        return true;
    }

private:
    void answer(const QDBusMessage& message) {
        if (message.member() == "RegisterStatusNotifierItem") items_.append(item_ = message.service());
        const auto isThere = QVariant::fromValue(QDBusVariant(true));
        bus_.send(message.member() == "Get" ? message.createReply(isThere) : message.createReply());
    }

    const QString name = "org.kde.StatusNotifierWatcher";
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "watcher");
    bool isAnswering_ = false;
    QList<QDBusMessage> unanswered_;
    QString item_;
    QStringList items_;
};

} // namespace quorvane
