#include "switching/InputDecision.h"

#include <utility>

#include "input/Launchers.h"
#include "settings/DefaultInput.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

WantedInput InputDecision::wantedBy(const std::optional<std::string>& bundleIdentifier) const {
    return wantedInput(openSharedDefaults(stores_)->objectForKey(key::autoInput), bundleIdentifier,
                       isLauncher(launchers_, bundleIdentifier),
                       defaultInput(stores_.standardUserDefaults()));
}

void InputDecision::decide(const std::optional<std::string>& bundleIdentifier) {
    companion_.dropRequest(); // what is decided now holds
    Decision decision{.application = bundleIdentifier, .madeAt = clock_.secondsSince1970()};
    decision.wanted = wantedBy(bundleIdentifier);
    decision.outcome = giveInput(decision.wanted, isLauncher(launchers_, bundleIdentifier));
    decision.seconds = clock_.secondsSince1970() - decision.madeAt;
    lastDecision_ = std::move(decision);
    decided.emit();
}

void InputDecision::decideAgain() {
    if (lastDecision_) decide(std::optional(lastDecision_->application));
}

Decision::Outcome InputDecision::giveInput(const WantedInput& wanted, bool isForLauncher) {
    using enum Decision::Outcome;
    if (!wanted.id) return nothingWanted;
    const auto& target = *wanted.id;
    if (inputSwitch_.currentInputSourceID() == target) return isCurrent;
    if (pause_.isOn()) return isPaused;
    if (companion_.isRunning()) {
        companion_.askToSwitchInput(target);
        return companionAsked;
    }
    if (isForLauncher) {
        inputSwitch_.selectInputSource(target);
    } else if (switchDelay_ > 0) {
        runLoop_.dispatchAfter(switchDelay_, [this, target] { switchTo(target); });
    } else {
        // Not even queued: the next activation, decided before a queued block ran, would still see the old
        // source as the current one.
        switchTo(target);
    }
    return switched;
}

void InputDecision::switchTo(const std::string& target) {
    inputSwitch_.selectInputSource(target);
    reset_();
}

} // namespace quorvane
