#include "platform/linux/dbus/BusApplications.h"

#include <regex>
#include <utility>

#include "platform/linux/dbus/BusName.h"
#include "platform/linux/dbus/SessionBus.h"

namespace quorvane {
namespace {

/// The bus ends a connection that sends it a malformed name.
bool isBusName(std::string_view id) {
    static const std::regex wellKnown(R"([A-Za-z_-][A-Za-z0-9_-]*(\.[A-Za-z_-][A-Za-z0-9_-]*)+)");
    return id.size() <= 255 && std::regex_match(id.begin(), id.end(), wellKnown);
}

} // namespace

struct BusApplications::Followed {
    explicit Followed(const QString& id) : name(sessionBus(), id) {}

    BusName name;
    Subscription owners;
};

BusApplications::BusApplications(const std::vector<std::string>& ids) {
    for (const auto& id : ids)
        follow(id);
}

BusApplications::~BusApplications() = default;

bool BusApplications::isRunning(std::string_view id) {
    const auto* followed = follow(id);
    return followed && followed->name.isOwned();
}

const BusApplications::Followed* BusApplications::follow(std::string_view id) {
    if (const auto known = followed_.find(id); known != followed_.end()) return known->second.get();
    if (!isBusName(id)) return nullptr;
    const std::string name(id);
    auto& followed = followed_[name];
    followed = std::make_unique<Followed>(QString::fromStdString(name));
    followed->owners = followed->name.told.connect([this, name, &followed = *followed](const auto& before) {
        if (before && before->isEmpty() && followed.name.isOwned()) started_.emit(name);
    });
    return followed.get();
}

std::vector<std::string> BusApplications::ids() const {
    std::vector<std::string> ids;
    for (const auto& [id, followed] : followed_) {
        if (followed->name.isOwned()) ids.push_back(id);
    }
    return ids;
}

Subscription BusApplications::onStart(std::function<void(std::string_view id)> handler) {
    return started_.connect(std::move(handler));
}

} // namespace quorvane
