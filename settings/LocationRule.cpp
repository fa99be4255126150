#include "settings/LocationRule.h"

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

constexpr std::string_view bundleIdentifierKey = "BundleIdentifier";
constexpr std::string_view nameKey = "Name";
constexpr std::string_view inputIDKey = "InputID";

std::string textOf(const PropertyList& value) {
    const auto* text = value.string();
    return text ? *text : std::string();
}

LocationRule ruleOf(const PropertyList& record) {
    LocationRule rule{textOf(record[bundleIdentifierKey]), textOf(record[nameKey]), std::nullopt};
    if (const auto* id = record[inputIDKey].string()) rule.inputID = *id;
    return rule;
}

} // namespace

std::size_t numberOfLocationRules(const UserDefaults& shared) {
    const auto stored = shared.objectForKey(key::arrOfLocationInfo);
    return stored.array() ? stored.array()->size() : 0;
}

std::optional<LocationRule> locationRuleAt(const UserDefaults& shared, std::size_t index) {
    const auto stored = shared.objectForKey(key::arrOfLocationInfo);
    if (!stored.array() || index >= stored.array()->size()) return std::nullopt;
    return ruleOf((*stored.array())[index]);
}

void setLocationName(UserDefaults& shared, std::size_t index, std::string_view name) {
    changeRecord(shared, key::arrOfLocationInfo, index,
                 [&](PropertyList::Dictionary& record) { record[std::string(nameKey)] = name; });
}

void setLocationInput(UserDefaults& shared, std::size_t index, std::string_view inputID) {
    changeRecord(shared, key::arrOfLocationInfo, index,
                 [&](PropertyList::Dictionary& record) { record[std::string(inputIDKey)] = inputID; });
}

void removeLocation(UserDefaults& shared, std::size_t index) {
    if (index >= numberOfLocationRules(shared)) return;
    changeArray(shared, key::arrOfLocationInfo, [&](PropertyList::Array& records) {
        records.erase(records.begin() + static_cast<std::ptrdiff_t>(index));
    });
}

} // namespace quorvane
