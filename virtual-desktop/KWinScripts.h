#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QJsonValue>

namespace quorvane {

/// What only scripts inside KWin can do and see.
class KWinScripts : private QDBusVirtualObject {
public:
    /// By that connection.
    explicit KWinScripts(QDBusConnection bus);
    ~KWinScripts() override;

    /// The value of an expression of JavaScript; undefined when KWin does not answer. There are the functions
    /// of kwin-user.js.
    QJsonValue evaluate(const QString& expression);

private:
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    QDBusConnection bus_;
    int number_ = 0; ///< Of the last script.
    QHash<int, QByteArray> answers_;
};

} // namespace quorvane
