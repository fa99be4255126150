#include "settings/RuleTableOrder.h"

#include <algorithm>

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {

std::vector<std::string> inUsersOrder(std::vector<std::string> found, const UserDefaults& standard) {
    const auto stored = standard.objectForKey(key::orderOfAppsRule);
    const auto* order = stored.array();
    if (!order) return found;
    auto next = found.begin();
    for (const auto& entry : *order) {
        const auto* identifier = entry.string();
        if (!identifier) continue;
        const auto place = std::find(next, found.end(), *identifier);
        if (place == found.end()) continue;
        std::rotate(next, place, place + 1);
        ++next;
    }
    return found;
}

void setOrderOfAppsRule(UserDefaults& standard, const std::vector<std::string>& bundleIdentifiers) {
    standard.setObject(PropertyList::Array(bundleIdentifiers.begin(), bundleIdentifiers.end()),
                       key::orderOfAppsRule);
    standard.synchronize();
}

bool isHiddenFromRuleTable(const UserDefaults& standard, std::string_view bundleIdentifier) {
    const auto stored = standard.objectForKey(key::notDisplayAppName);
    const auto* hidden = stored.array();
    return hidden && std::ranges::find(*hidden, PropertyList(bundleIdentifier)) != hidden->end();
}

void hideFromRuleTable(UserDefaults& standard, std::string_view bundleIdentifier) {
    changeArray(standard, key::notDisplayAppName,
                [&](PropertyList::Array& hidden) { hidden.emplace_back(bundleIdentifier); });
}

void showInRuleTable(UserDefaults& standard, std::string_view bundleIdentifier) {
    changeArray(standard, key::notDisplayAppName,
                [&](PropertyList::Array& hidden) { std::erase(hidden, PropertyList(bundleIdentifier)); });
}

} // namespace quorvane
