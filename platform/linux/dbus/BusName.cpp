#include "platform/linux/dbus/BusName.h"

#include <limits>
#include <utility>

#include <QDBusMessage>

#include "platform/linux/dbus/AsyncCall.h"

namespace quorvane {
namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

/// The bus itself answers, whenever it can.
constexpr int endlessPatience = std::numeric_limits<int>::max();

} // namespace

BusName::BusName(const QDBusConnection& bus, const QString& name) {
    // Before the question: no change in between is missed.
    auto connection = bus;
    connection.connect(busService, busPath, busService, QStringLiteral("NameOwnerChanged"), {name}, QString(),
                       this, SLOT(ownerChanged(QString, QString, QString)));
    connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                       SLOT(disconnected()));
    auto question =
        QDBusMessage::createMethodCall(busService, busPath, busService, QStringLiteral("GetNameOwner"));
    question.setArguments({name});
    // Qt may hand out the answer after a change that came later. A name without an owner is an error.
    callAsync(
        bus, question, this,
        [this](const QDBusMessage& answer) {
            if (!isTold_)
                setOwner(answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString()
                                                                     : QString());
        },
        endlessPatience);
}

void BusName::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/, const QString& newOwner) {
    setOwner(newOwner);
}

void BusName::setOwner(const QString& owner) {
    std::optional<QString> before = std::exchange(owner_, owner);
    if (!std::exchange(isTold_, true))
        before.reset();
    else if (before == owner)
        return;
    told.emit(before);
}

} // namespace quorvane
