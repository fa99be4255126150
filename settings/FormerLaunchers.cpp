#include "settings/FormerLaunchers.h"

#include <algorithm>

#include "settings/FormerIdentifiers.h"

namespace quorvane {

void takeOverFormerLaunchers(UserDefaults& defaults, const LauncherFacts& launchers) {
    if (launchers.formerPrefix.empty()) return;
    takeOverFormerIdentifiers(defaults, [&](const std::string& former) -> std::optional<std::string> {
        if (!former.starts_with(launchers.formerPrefix)) return std::nullopt;
        auto present = former.substr(launchers.formerPrefix.size());
        if (std::ranges::count(launchers.identifiers, present) == 0) return std::nullopt;
        return present;
    });
}

} // namespace quorvane
