#include "platform/simulated/SimulatedPreferences.h"

#include <algorithm>

namespace quorvane {

void SimulatedPopUpButton::setTitle(const std::string& title) {
    const auto item = std::ranges::find(items, title);
    if (item != items.end()) selected = static_cast<int>(item - items.begin());
}

PreferencesOutlets SimulatedPreferences::outlets() {
    return {window,       tabView,   rules,       preference,        learn,          contactUs,
            freeApps,     version,   switchTimes, removeApplication, removeLocation, setUp,
            applications, locations, shortcuts,   defaultInput};
}

} // namespace quorvane
