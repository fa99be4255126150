#pragma once

#include <functional>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "platform/Signal.h"

namespace quorvane {

/// Fcitx5 on the session bus: calls to it, and whether it is there and answers. Never starts it, and never
/// waits for it.
class Fcitx5Controller : public QObject {
    Q_OBJECT

public:
    using Answered = std::function<void(const QDBusMessage& answer)>;

    explicit Fcitx5Controller(QDBusConnection bus);

    /// Whether it is there, and has answered what it was last asked.
    bool isAlive() const { return !owner_.isEmpty() && !isHanging_; }

    /// Whether it is another process than when it last fell silent.
    bool isStartedAnew() const { return isStartedAnew_; }

    /// `answered` gets the answer, or the error, from the event loop; nothing comes when Fcitx5 hangs or goes
    /// first. Without effect while it is not alive.
    void call(const QString& method, const QVariantList& arguments = {}, Answered answered = {});

    Signal<> cameAlive; ///< As another process perhaps, which knows nothing.
    Signal<> fellSilent;
    Signal<> groupsChanged; ///< What input methods there are.
    Signal<> iconChanged;   ///< Some icon in the tray: Fcitx5's shows what is typed with.

private:
    Q_SLOT void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    Q_SLOT void disconnected();
    Q_SLOT void inputMethodGroupsChanged(const QDBusMessage& message);
    Q_SLOT void newIcon() { iconChanged.emit(); }

    void send(const QDBusMessage& message, int timeout, std::function<void(const QDBusMessage&)> received);
    QDBusMessage question(const QString& method) const;
    void setOwner(const QString& owner);
    void wait();

    QDBusConnection bus_;
    QString owner_; ///< Its connection; empty when there is none.
    bool isHanging_ = false;
    bool isStartedAnew_ = true;
};

} // namespace quorvane
