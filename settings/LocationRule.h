#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/UserDefaults.h"

namespace quorvane {

/// A place inside an application that has an input source of its own: one element of "arrOfLocationInfo".
/// The companion application makes the records and may keep more in them than is read here.
struct LocationRule {
    std::string bundleIdentifier; ///< The application in which the location lies.
    std::string name;
    std::optional<std::string> inputID; ///< None until the user has chosen one.
};

/// How many records are stored, usable or not.
std::size_t numberOfLocationRules(const UserDefaults& shared);

/// What is missing in the record, or of another type, is left empty. None for an index out of range.
std::optional<LocationRule> locationRuleAt(const UserDefaults& shared, std::size_t index);

// Edits of one record in the shared suite, each followed by `synchronize`. Everything else in the record is
// kept. An index out of range changes nothing.

void setLocationName(UserDefaults& shared, std::size_t index, std::string_view name);
void setLocationInput(UserDefaults& shared, std::size_t index, std::string_view inputID);
void removeLocation(UserDefaults& shared, std::size_t index);

} // namespace quorvane
