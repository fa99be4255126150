#include "switching/InputDecision.h"

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
    lastApplication_ = bundleIdentifier;
    giveWantedInput();
    decided.emit();
}

void InputDecision::giveWantedInput() {
    companion_.dropRequest(); // what is decided now holds
    const auto target = wantedBy(lastApplication_).id;
    if (!target || inputSwitch_.currentInputSourceID() == *target) return;

    if (companion_.isRunning()) {
        companion_.askToSwitchInput(*target);
    } else if (isLauncher(launchers_, lastApplication_)) {
        inputSwitch_.selectInputSource(*target);
    } else if (switchDelay_ > 0) {
        runLoop_.dispatchAfter(switchDelay_, [this, target = *target] { switchTo(target); });
    } else {
        // Not even queued: the next activation, decided before a queued block ran, would still see the old
        // source as the current one.
        switchTo(*target);
    }
}

void InputDecision::switchTo(const std::string& target) {
    inputSwitch_.selectInputSource(target);
    reset_();
}

} // namespace quorvane
