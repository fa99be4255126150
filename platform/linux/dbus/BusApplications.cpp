#include "platform/linux/dbus/BusApplications.h"

#include <regex>

#include <QDBusMessage>

#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {
namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");
constexpr int answerTimeout = 200; // milliseconds: the bus itself answers, or it hangs

/// The bus ends a connection that sends it a malformed name.
bool isBusName(std::string_view id) {
    static const std::regex wellKnown(R"([A-Za-z_-][A-Za-z0-9_-]*(\.[A-Za-z_-][A-Za-z0-9_-]*)+)");
    return id.size() <= 255 && std::regex_match(id.begin(), id.end(), wellKnown);
}

QDBusMessage ask(const QString& method, const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(busService, busPath, busService, method);
    call.setArguments(arguments);
    return sessionBus().call(call, QDBus::Block, answerTimeout);
}

} // namespace

bool BusApplications::isRunning(std::string_view id) const {
    if (const auto known = owned_.find(id); known != owned_.end()) return known->second;
    if (!isBusName(id)) return false;
    const auto name = QString::fromUtf8(id.data(), qsizetype(id.size()));
    auto* self = const_cast<BusApplications*>(this); // a slot changes what is remembered, not what is told
    auto bus = sessionBus();
    // Subscribed before it is asked: no change in between is missed.
    bus.connect(busService, busPath, busService, QStringLiteral("NameOwnerChanged"), {name}, QString(), self,
                SLOT(ownerChanged(QString, QString, QString)));
    if (owned_.empty()) {
        bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                    QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), self,
                    SLOT(disconnected()));
    }
    return owned_[std::string(id)] = isOwnedNow(name);
}

bool BusApplications::isOwnedNow(const QString& name) const {
    const auto answer = ask(QStringLiteral("NameHasOwner"), {name});
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
}

std::vector<std::string> BusApplications::ids() const {
    std::vector<std::string> ids;
    const auto answer = ask(QStringLiteral("ListNames"), {});
    for (const auto& name : answer.arguments().value(0).toStringList()) {
        if (!name.startsWith(':')) ids.push_back(name.toStdString());
    }
    return ids;
}

Subscription BusApplications::onStart(std::function<void(std::string_view id)> handler) {
    return started_.connect(std::move(handler));
}

void BusApplications::ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner) {
    const auto id = name.toStdString();
    owned_[id] = !newOwner.isEmpty();
    if (oldOwner.isEmpty() && !newOwner.isEmpty()) started_.emit(id);
}

void BusApplications::disconnected() {
    for (auto& [name, isOwned] : owned_)
        isOwned = false;
}

} // namespace quorvane
