#pragma once

#include <string>
#include <vector>

#include "platform/ApplicationBundles.h"
#include "platform/LauncherFacts.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace quorvane {

/// The rows of the application rules table: installed applications that have a rule, then running ones that a
/// user sees, launchers included, unless they were removed from the table; all in the user's order.
std::vector<std::string> buildArrOfApps(const UserDefaults& standard, const Workspace& workspace,
                                        const ApplicationBundles& bundles, const LauncherFacts& launchers);

/// The list after the row was dropped above the row `target`, or below the last one. A row that is moved
/// down ends one place below the gap it was dropped into, except at the very end. Rows out of range change
/// nothing.
std::vector<std::string> reordered(std::vector<std::string> rows, int dragged, int target);

} // namespace quorvane
