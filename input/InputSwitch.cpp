#include "input/InputSwitch.h"

#include "input/Launchers.h"
#include "settings/SharedDefaults.h"
#include "settings/SwitchTimes.h"

namespace quorvane {

std::string InputSwitch::currentInputSourceID() const {
    const auto current = inputSources_.copyCurrentKeyboardInputSource();
    return current ? current->id : std::string();
}

void InputSwitch::selectInputSource(std::string_view id) {
    keptLayoutSource_.reset();
    countSwitch(*openSharedDefaults(stores_));
    keptLayoutSource_ = inputSources_.copyCurrentKeyboardLayoutInputSource();
    const auto matching = inputSources_.createInputSourceList(id);
    if (!matching.empty()) inputSources_.selectInputSource(matching.front());
}

void InputSwitch::changeInputTo(std::string_view id) {
    companion_.dropRequest();
    if (currentInputSourceID() == id) return;
    if (isLauncherInFront()) return;
    if (companion_.isRunning()) {
        companion_.askToSwitchInput(id);
        return;
    }
    selectInputSource(id);
    reset_();
}

/// One that a desktop tells of is in front, whichever application is active behind it.
bool InputSwitch::isLauncherInFront() const {
    const auto frontmost = workspace_.frontmostApplication();
    return openLaunchers_.told || (frontmost && isLauncher(launchers_, frontmost->bundleIdentifier));
}

} // namespace quorvane
