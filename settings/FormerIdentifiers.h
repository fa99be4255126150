#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/UserDefaults.h"

namespace quorvane {

/// None for an identifier that is no former one.
using PresentIdentifier = std::function<std::optional<std::string>(const std::string& former)>;

/// Puts what the store has under former identifiers of applications, rules and places in the table, under the
/// present ones. Writes nothing where there are none.
void takeOverFormerIdentifiers(UserDefaults& defaults, const PresentIdentifier& presentOf);

} // namespace quorvane
