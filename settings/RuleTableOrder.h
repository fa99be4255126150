#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/UserDefaults.h"

namespace quorvane {

/// The applications in the user's order: those named in "orderOfAppsRule" first, in its order, the others
/// after them in the order in which they were found.
std::vector<std::string> inUsersOrder(std::vector<std::string> found, const UserDefaults& standard);

// What the rule table shows, in the standard defaults. Each edit is followed by `synchronize`.

void setOrderOfAppsRule(UserDefaults& standard, const std::vector<std::string>& bundleIdentifiers);

bool isHiddenFromRuleTable(const UserDefaults& standard, std::string_view bundleIdentifier);

/// Appends without looking whether it is there already.
void hideFromRuleTable(UserDefaults& standard, std::string_view bundleIdentifier);

/// Removes every equal entry.
void showInRuleTable(UserDefaults& standard, std::string_view bundleIdentifier);

} // namespace quorvane
