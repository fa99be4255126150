#include "settings/FormerLaunchers.h"

#include <algorithm>
#include <optional>
#include <string>

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

/// None for anything else than a former identifier.
std::optional<std::string> presentIdentifier(const std::string& former, const LauncherFacts& launchers) {
    if (!former.starts_with(launchers.formerPrefix)) return std::nullopt;
    const auto present = former.substr(launchers.formerPrefix.size());
    const bool isLauncher = std::ranges::count(launchers.identifiers, present) > 0;
    return isLauncher ? std::optional(present) : std::nullopt;
}

/// Whatever a present rule says counts; the former one only completes it.
PropertyList completed(const PropertyList& present, const PropertyList& former) {
    auto rule = former;
    const auto* said = present.dictionary();
    for (const auto& [field, value] : said ? *said : PropertyList::Dictionary{})
        rule = rule.with(field, value);
    return rule;
}

void takeOverRules(UserDefaults& defaults, const LauncherFacts& launchers) {
    const auto stored = defaults.objectForKey(key::autoInput);
    auto rules = stored;
    for (const auto& [identifier, rule] :
         stored.dictionary() ? *stored.dictionary() : PropertyList::Dictionary{}) {
        if (const auto present = presentIdentifier(identifier, launchers))
            rules = rules.with(*present, completed(rules[*present], rule)).with(identifier, {});
    }
    if (rules == stored) return;
    defaults.setObject(rules, key::autoInput);
    defaults.synchronize();
}

void takeOverPlaces(UserDefaults& defaults, std::string_view key, const LauncherFacts& launchers) {
    const auto stored = defaults.objectForKey(key);
    PropertyList::Array places;
    for (const auto& place : stored.array() ? *stored.array() : PropertyList::Array{}) {
        const auto* identifier = place.string();
        const auto present = identifier ? presentIdentifier(*identifier, launchers) : std::nullopt;
        const bool isNamed = present && std::ranges::count(*stored.array(), PropertyList(*present)) > 0;
        if (!isNamed) places.push_back(present ? PropertyList(*present) : place);
    }
    if (!stored.array() || places == *stored.array()) return;
    defaults.setObject(std::move(places), key);
    defaults.synchronize();
}

} // namespace

void takeOverFormerLaunchers(UserDefaults& defaults, const LauncherFacts& launchers) {
    if (launchers.formerPrefix.empty()) return;
    takeOverRules(defaults, launchers);
    takeOverPlaces(defaults, key::orderOfAppsRule, launchers);
    takeOverPlaces(defaults, key::notDisplayAppName, launchers);
}

} // namespace quorvane
