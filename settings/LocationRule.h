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

/// As many as are stored, in their order, so that an index here is an index there. What is missing in a
/// record, or of another type, is left empty.
std::vector<LocationRule> locationRules(const UserDefaults& shared);

// Edits of one record in the shared suite, each followed by `synchronize`. Everything else in the record is
// kept. An index out of range changes nothing.

void setLocationName(UserDefaults& shared, std::size_t index, std::string_view name);
void setLocationInput(UserDefaults& shared, std::size_t index, std::optional<std::string_view> inputID);
void removeLocation(UserDefaults& shared, std::size_t index);

} // namespace quorvane
