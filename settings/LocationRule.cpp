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

std::vector<LocationRule> locationRules(const UserDefaults& shared) {
    std::vector<LocationRule> rules;
    const auto stored = shared.objectForKey(key::arrOfLocationInfo);
    if (const auto* records = stored.array()) {
        for (const auto& record : *records)
            rules.push_back(ruleOf(record));
    }
    return rules;
}

void setLocationName(UserDefaults& shared, std::size_t index, std::string_view name) {
    changeRecord(shared, key::arrOfLocationInfo, index,
                 [&](PropertyList::Dictionary& record) { record[std::string(nameKey)] = name; });
}

void setLocationInput(UserDefaults& shared, std::size_t index, std::optional<std::string_view> inputID) {
    changeRecord(shared, key::arrOfLocationInfo, index, [&](PropertyList::Dictionary& record) {
        if (inputID)
            record[std::string(inputIDKey)] = *inputID;
        else
            record.erase(std::string(inputIDKey));
    });
}

void removeLocation(UserDefaults& shared, std::size_t index) {
    if (index >= locationRules(shared).size()) return;
    changeArray(shared, key::arrOfLocationInfo, [&](PropertyList::Array& records) {
        records.erase(records.begin() + static_cast<std::ptrdiff_t>(index));
    });
}

} // namespace quorvane
