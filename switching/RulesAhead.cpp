#include "switching/RulesAhead.h"

#include <utility>

#include "settings/DefaultInput.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"
#include "switching/WantedInput.h"

namespace quorvane {

RulesAhead::RulesAhead(SwitchingAhead& ahead, UserDefaultsStores& stores, Workspace& workspace,
                       const CompanionLink& companion, SwitchPause& pause, InputDecision& decision)
    : ahead_(ahead)
    , stores_(stores)
    , companion_(companion)
    , pause_(pause) {
    auto& standard = stores.standardUserDefaults();
    subscriptions_.push_back(
        standard.ownDomain().addObserver(key::autoInput, [this](auto /*key*/) { update(); }));
    subscriptions_.push_back(standard.addObserver(key::defaultInput, [this](auto /*key*/) { update(); }));
    subscriptions_.push_back(pause.changed.connect([this] { update(); }));
    subscriptions_.push_back(workspace.addObserver(WorkspaceNotification::didLaunchApplication,
                                                   [this](const auto& /*companion*/) { update(); }));
    // Nobody tells that the companion has ended, or has written rules.
    subscriptions_.push_back(decision.decided.connect([this] { update(); }));
    update();
}

RulesAhead::Settings RulesAhead::settings() const {
    if (pause_.isOn() || companion_.isRunning()) return {};
    return {openSharedDefaults(stores_)->objectForKey(key::autoInput),
            defaultInput(stores_.standardUserDefaults())};
}

void RulesAhead::update() {
    auto current = settings();
    if (current == handedOver_) return;
    handedOver_ = std::move(current);
    SwitchingRules rules{{}, handedOver_.defaultInput.value_or("")};
    if (const auto* stored = handedOver_.autoInput.dictionary()) {
        for (const auto& [application, rule] : *stored) {
            const auto wanted = wantedInput(handedOver_.autoInput, application, false, std::nullopt);
            if (wanted.id) rules.sourceOfApplication[application] = *wanted.id;
        }
    }
    ahead_.setRules(rules);
}

} // namespace quorvane
