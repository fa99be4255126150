#include "preferences/CheckBoxBinding.h"

#include <string>
#include <utility>

#include "settings/Keys.h"

namespace quorvane {

CheckBoxBinding::CheckBoxBinding(CheckBox& checkBox, StandardUserDefaults& standard, std::string_view key) {
    const auto show = [&checkBox, &standard](std::string_view stored) {
        checkBox.setState(standard.boolForKey(stored) ? stateOn : stateOff);
    };
    show(key);
    observation_ = standard.addObserver(key, show);
    checkBox.whenClicked(
        [&standard, key = std::string(key)](int state) { standard.setBool(state == stateOn, key); });
}

std::vector<CheckBoxBinding> bindCheckBoxes(const OptionCheckBoxes& options, StandardUserDefaults& standard) {
    const std::pair<CheckBox&, std::string_view> keys[] = {
        {options.autoStartAtLogin, key::autoStartAtLogin},
        {options.enableTipOfState, key::enableTipOfState},
        {options.followWindow, key::followWindow},
        {options.hiddenIconInStatusBar, key::hiddenIconInStatusBar},
        {options.enableForceEnglishBrowserAddress, key::enableForceEnglishBrowserAddress}};
    std::vector<CheckBoxBinding> bindings;
    for (const auto& [checkBox, key] : keys)
        bindings.emplace_back(checkBox, standard, key);
    return bindings;
}

} // namespace quorvane
