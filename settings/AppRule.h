#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/UserDefaults.h"

namespace quorvane {

/// What the user chose for one application: a dictionary stored under the application's bundle identifier in
/// "autoInput". Every key is optional. Reading one out of the stored value costs the same with any number of
/// rules.
class AppRule {
public:
    /// The rule for an application; an empty one where there is none, or something else in its place.
    static AppRule ofApplication(const PropertyList& autoInput, std::string_view bundleIdentifier);

    /// The input source to select when the application comes to the front; none: the default one applies.
    std::optional<std::string> id() const;

    bool forceEnglishSymbols() const; ///< Kept as a number.

private:
    explicit AppRule(PropertyList record) : record_(std::move(record)) {}

    PropertyList record_;
};

// Edits of the rules in the standard defaults, each followed by `synchronize`.

/// None takes the input source out of the rule and keeps the rest of it.
void setRuleInput(UserDefaults& standard, std::string_view bundleIdentifier,
                  std::optional<std::string_view> id);

/// Kept as the string "1" or "0", for the companion application to read.
void setRuleEnglishSymbol(UserDefaults& standard, std::string_view bundleIdentifier, bool isOn);
void setRuleForceEnglishSymbols(UserDefaults& standard, std::string_view bundleIdentifier, bool isOn);
void removeRule(UserDefaults& standard, std::string_view bundleIdentifier);

} // namespace quorvane
