#include "preferences/RuleTableRows.h"

#include <algorithm>
#include <utility>

#include "input/Launchers.h"
#include "settings/Keys.h"
#include "settings/RuleTableOrder.h"

namespace quorvane {
namespace {

bool isShownWhileRunning(const RunningApplication& application, const LauncherFacts& launchers) {
    return application.activationPolicy == ActivationPolicy::regular ||
           isLauncher(launchers, application.bundleIdentifier);
}

} // namespace

std::vector<std::string> buildArrOfApps(const UserDefaults& standard, const Workspace& workspace,
                                        const ApplicationBundles& bundles, const LauncherFacts& launchers) {
    std::vector<std::string> found;
    const auto autoInput = standard.objectForKey(key::autoInput);
    if (const auto* rules = autoInput.dictionary()) {
        for (const auto& [identifier, rule] : *rules)
            if (bundles.absolutePathForAppBundle(identifier)) found.push_back(identifier);
    }
    for (const auto& application : workspace.runningApplications()) {
        const auto& identifier = application.bundleIdentifier;
        if (!identifier || !isShownWhileRunning(application, launchers)) continue;
        const bool isThere = std::ranges::find(found, *identifier) != found.end();
        if (!isThere && !isHiddenFromRuleTable(standard, *identifier)) found.push_back(*identifier);
    }
    return inUsersOrder(std::move(found), standard);
}

std::vector<std::string> reordered(std::vector<std::string> rows, int dragged, int target) {
    const auto count = static_cast<int>(rows.size());
    if (dragged < 0 || dragged >= count || target < 0 || target > count) return rows;
    auto moved = std::move(rows[static_cast<std::size_t>(dragged)]);
    rows.erase(rows.begin() + dragged);
    rows.insert(rows.begin() + (target == count ? target - 1 : target), std::move(moved));
    return rows;
}

} // namespace quorvane
