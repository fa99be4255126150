#include "switching/InputDecision.h"

#include "input/Launchers.h"
#include "settings/AppRule.h"
#include "settings/DefaultInput.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

std::optional<std::string> wantedInputSource(const PropertyList& autoInput,
                                             const std::optional<std::string>& bundleIdentifier,
                                             const std::optional<std::string>& defaultInput) {
    if (bundleIdentifier) {
        if (auto id = AppRule::ofApplication(autoInput, *bundleIdentifier).id()) return id;
    }
    return defaultInput;
}

void InputDecision::decide(const std::optional<std::string>& bundleIdentifier) {
    companion_.dropRequest(); // what is decided now holds
    const auto autoInput = openSharedDefaults(stores_)->objectForKey(key::autoInput);
    const auto target =
        wantedInputSource(autoInput, bundleIdentifier, defaultInput(stores_.standardUserDefaults()));
    if (!target || inputSwitch_.currentInputSourceID() == *target) return;

    if (companion_.isRunning()) {
        companion_.askToSwitchInput(*target);
    } else if (isLauncher(bundleIdentifier)) {
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
