#pragma once

#include <optional>
#include <string>
#include <vector>

#include "input/CompanionLink.h"
#include "platform/Subscription.h"
#include "platform/SwitchingAhead.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "switching/InputDecision.h"
#include "switching/SwitchPause.h"

namespace quorvane {

/// Hands the rules to a desktop that can switch ahead of the program, and takes them back while this program
/// must not switch: in a pause, and while the companion application does it.
class RulesAhead {
public:
    /// All must outlive this object.
    RulesAhead(SwitchingAhead& ahead, UserDefaultsStores& stores, Workspace& workspace,
               const CompanionLink& companion, SwitchPause& pause, InputDecision& decision);
    RulesAhead(const RulesAhead&) = delete;
    RulesAhead& operator=(const RulesAhead&) = delete;

private:
    /// What the rules are made of.
    struct Settings {
        PropertyList autoInput;
        std::optional<std::string> defaultInput;

        bool operator==(const Settings&) const = default;
    };

    Settings settings() const;
    void update();

    SwitchingAhead& ahead_;
    UserDefaultsStores& stores_;
    const CompanionLink& companion_;
    const SwitchPause& pause_;
    Settings handedOver_;
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
