#include "platform/linux/input-methods/fcitx5/Fcitx5Controller.h"

#include <limits>
#include <utility>

#include <QDBusError>
#include <QDBusPendingCallWatcher>

namespace quorvane {
namespace {

const QString fcitx5 = QStringLiteral("org.fcitx.Fcitx5");
const QString controllerPath = QStringLiteral("/controller");
const QString controllerInterface = QStringLiteral("org.fcitx.Fcitx.Controller1");
const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

// Milliseconds; whoever takes longer hangs. An input method that is used for the first time may take half a
// second.
constexpr int answerTimeout = 1000;
constexpr int patience = std::numeric_limits<int>::max();

bool isTimeOut(const QDBusMessage& answer) {
    const QDBusError error(answer);
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

} // namespace

Fcitx5Controller::Fcitx5Controller(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.connect(busService, busPath, busService, QStringLiteral("NameOwnerChanged"), {fcitx5}, QString(),
                 this, SLOT(ownerChanged(QString, QString, QString)));
    bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(disconnected()));
    bus_.connect(QString(), controllerPath, controllerInterface, QStringLiteral("InputMethodGroupsChanged"),
                 this, SLOT(inputMethodGroupsChanged(QDBusMessage)));
    bus_.connect(QString(), QStringLiteral("/StatusNotifierItem"),
                 QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("NewIcon"), this,
                 SLOT(newIcon()));
    auto ask =
        QDBusMessage::createMethodCall(busService, busPath, busService, QStringLiteral("GetNameOwner"));
    ask.setArguments({fcitx5});
    send(ask, answerTimeout, [this](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage && owner_.isEmpty())
            setOwner(answer.arguments().value(0).toString());
    });
}

void Fcitx5Controller::send(const QDBusMessage& message, int timeout,
                            std::function<void(const QDBusMessage&)> received) {
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(message, timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, received = std::move(received)] {
        watcher->deleteLater();
        received(watcher->reply());
    });
}

QDBusMessage Fcitx5Controller::question(const QString& method) const {
    // To the connection itself: a name would be looked for, and a program of that name started.
    auto message = QDBusMessage::createMethodCall(owner_, controllerPath, controllerInterface, method);
    message.setAutoStartService(false);
    return message;
}

void Fcitx5Controller::call(const QString& method, const QVariantList& arguments, Answered answered) {
    if (!isAlive()) return;
    auto message = question(method);
    message.setArguments(arguments);
    send(message, answerTimeout, [this, owner = owner_, answered = std::move(answered)](const auto& answer) {
        if (owner != owner_ || isHanging_) return;
        if (isTimeOut(answer)) return wait();
        if (answered) answered(answer);
    });
}

/// The answer to one more question, however late, is the news that it goes on.
void Fcitx5Controller::wait() {
    isHanging_ = true;
    isStartedAnew_ = false;
    send(question(QStringLiteral("CurrentInputMethod")), patience,
         [this, owner = owner_](const auto& answer) {
             if (owner != owner_ || isTimeOut(answer)) return;
             isHanging_ = false;
             cameAlive.emit();
         });
    fellSilent.emit();
}

void Fcitx5Controller::setOwner(const QString& owner) {
    const bool wasAlive = isAlive();
    owner_ = owner;
    isHanging_ = false;
    isStartedAnew_ = true;
    if (wasAlive) fellSilent.emit();
    if (owner_.isEmpty()) return;
    cameAlive.emit();
}

void Fcitx5Controller::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                                    const QString& newOwner) {
    if (newOwner != owner_) setOwner(newOwner);
}

void Fcitx5Controller::disconnected() {
    setOwner({});
}

void Fcitx5Controller::inputMethodGroupsChanged(const QDBusMessage& message) {
    if (message.service() == owner_) groupsChanged.emit();
}

} // namespace quorvane
