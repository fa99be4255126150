#pragma once

#include "platform/LauncherFacts.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Puts what the store has under former identifiers of launchers, rules and places in the table, under the
/// present ones. Writes nothing where there are none; what was not done in one start is done in the next.
void takeOverFormerLaunchers(UserDefaults& defaults, const LauncherFacts& launchers);

} // namespace quorvane
