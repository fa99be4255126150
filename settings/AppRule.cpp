#include "settings/AppRule.h"

#include <utility>

#include "settings/Keys.h"
#include "settings/ReadCopyChangeWrite.h"

namespace quorvane {
namespace {

constexpr std::string_view idKey = "id";
constexpr std::string_view englishSymbolKey = "English Symbol";
constexpr std::string_view forceEnglishSymbolsKey = "Force English Symbols";

void setRuleValue(UserDefaults& standard, std::string_view bundleIdentifier, std::string_view field,
                  PropertyList value) {
    changeRecord(standard, key::autoInput, bundleIdentifier, [&](PropertyList::Dictionary& rule) {
        if (value.isNothing())
            rule.erase(std::string(field));
        else
            rule[std::string(field)] = std::move(value);
    });
}

} // namespace

AppRule AppRule::ofApplication(const PropertyList& autoInput, std::string_view bundleIdentifier) {
    return AppRule(autoInput[bundleIdentifier]);
}

std::optional<std::string> AppRule::id() const {
    if (const auto* id = record_[idKey].string()) return *id;
    return std::nullopt;
}

bool AppRule::forceEnglishSymbols() const {
    return record_[forceEnglishSymbolsKey].boolValue();
}

void setRuleInput(UserDefaults& standard, std::string_view bundleIdentifier,
                  std::optional<std::string_view> id) {
    setRuleValue(standard, bundleIdentifier, idKey, id ? PropertyList(*id) : PropertyList());
}

void setRuleEnglishSymbol(UserDefaults& standard, std::string_view bundleIdentifier, bool isOn) {
    setRuleValue(standard, bundleIdentifier, englishSymbolKey, isOn ? "1" : "0");
}

void setRuleForceEnglishSymbols(UserDefaults& standard, std::string_view bundleIdentifier, bool isOn) {
    setRuleValue(standard, bundleIdentifier, forceEnglishSymbolsKey, isOn ? 1 : 0);
}

void removeRule(UserDefaults& standard, std::string_view bundleIdentifier) {
    changeDictionary(standard, key::autoInput,
                     [&](PropertyList::Dictionary& rules) { rules.erase(std::string(bundleIdentifier)); });
}

} // namespace quorvane
