#include "platform/linux/dbus/BusApplications.h"

#include <limits>
#include <regex>
#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {
namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

/// The bus itself answers, whenever it can.
constexpr int endlessPatience = std::numeric_limits<int>::max();

/// The bus ends a connection that sends it a malformed name.
bool isBusName(std::string_view id) {
    static const std::regex wellKnown(R"([A-Za-z_-][A-Za-z0-9_-]*(\.[A-Za-z_-][A-Za-z0-9_-]*)+)");
    return id.size() <= 255 && std::regex_match(id.begin(), id.end(), wellKnown);
}

} // namespace

BusApplications::BusApplications(const std::vector<std::string>& ids) {
    sessionBus().connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(disconnected()));
    for (const auto& id : ids)
        follow(id);
}

bool BusApplications::isRunning(std::string_view id) {
    return follow(id);
}

bool BusApplications::follow(std::string_view id) {
    auto known = names_.find(id);
    if (known == names_.end()) {
        if (!isBusName(id)) return false;
        known = names_.emplace(id, Name()).first;
        listen(QString::fromStdString(known->first)); // Before it is asked: no change in between is missed.
    }
    if (!known->second.isAsked) ask(known->first);
    return known->second.isOwned;
}

void BusApplications::listen(const QString& name) {
    sessionBus().connect(busService, busPath, busService, QStringLiteral("NameOwnerChanged"), {name},
                         QString(), this, SLOT(ownerChanged(QString, QString, QString)));
}

void BusApplications::ask(const std::string& id) {
    names_[id].isAsked = true;
    auto call =
        QDBusMessage::createMethodCall(busService, busPath, busService, QStringLiteral("NameHasOwner"));
    call.setArguments({QString::fromStdString(id)});
    auto* watcher = new QDBusPendingCallWatcher(sessionBus().asyncCall(call, endlessPatience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, id, watcher] {
        answered(id, *watcher);
        watcher->deleteLater();
    });
}

void BusApplications::answered(const std::string& id, const QDBusPendingCallWatcher& answer) {
    const QDBusPendingReply<bool> reply = answer;
    if (reply.isError())
        names_[id].isAsked = false;
    else
        names_[id].isOwned = reply.value();
}

std::vector<std::string> BusApplications::ids() const {
    std::vector<std::string> ids;
    for (const auto& [id, name] : names_) {
        if (name.isOwned) ids.push_back(id);
    }
    return ids;
}

Subscription BusApplications::onStart(std::function<void(std::string_view id)> handler) {
    return started_.connect(std::move(handler));
}

void BusApplications::ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner) {
    const auto id = name.toStdString();
    names_[id] = {!newOwner.isEmpty(), true};
    if (oldOwner.isEmpty() && !newOwner.isEmpty()) started_.emit(id);
}

void BusApplications::disconnected() {
    for (auto& [id, name] : names_)
        name.isOwned = false;
}

} // namespace quorvane
