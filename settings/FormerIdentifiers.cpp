#include "settings/FormerIdentifiers.h"

#include <algorithm>
#include <utility>

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

/// Whatever a present rule says counts; the former one only completes it.
PropertyList completed(const PropertyList& present, const PropertyList& former) {
    auto rule = former;
    const auto* said = present.dictionary();
    for (const auto& [field, value] : said ? *said : PropertyList::Dictionary{})
        rule = rule.with(field, value);
    return rule;
}

void takeOverRules(UserDefaults& defaults, const PresentIdentifier& presentOf) {
    const auto stored = defaults.objectForKey(key::autoInput);
    auto rules = stored;
    for (const auto& [identifier, rule] :
         stored.dictionary() ? *stored.dictionary() : PropertyList::Dictionary{}) {
        if (const auto present = presentOf(identifier))
            rules = rules.with(*present, completed(rules[*present], rule)).with(identifier, {});
    }
    if (rules == stored) return;
    defaults.setObject(rules, key::autoInput);
    defaults.synchronize();
}

void takeOverPlaces(UserDefaults& defaults, std::string_view key, const PresentIdentifier& presentOf) {
    const auto stored = defaults.objectForKey(key);
    PropertyList::Array places;
    for (const auto& place : stored.array() ? *stored.array() : PropertyList::Array{}) {
        const auto* identifier = place.string();
        const auto present = identifier ? presentOf(*identifier) : std::nullopt;
        const bool isNamed = present && std::ranges::count(*stored.array(), PropertyList(*present)) > 0;
        if (!isNamed) places.push_back(present ? PropertyList(*present) : place);
    }
    if (!stored.array() || places == *stored.array()) return;
    defaults.setObject(std::move(places), key);
    defaults.synchronize();
}

} // namespace

void takeOverFormerIdentifiers(UserDefaults& defaults, const PresentIdentifier& presentOf) {
    takeOverRules(defaults, presentOf);
    takeOverPlaces(defaults, key::orderOfAppsRule, presentOf);
    takeOverPlaces(defaults, key::notDisplayAppName, presentOf);
}

} // namespace quorvane
