#include "platform/simulated/SimulatedPreferences.h"

#include <algorithm>

namespace quorvane {

void SimulatedPopUpButton::setItemTitles(const std::vector<std::string>& titles) {
    tell(textOf(PropertyList::Array(titles.begin(), titles.end())));
    items_ = titles;
    selected = 0;
}

void SimulatedPopUpButton::setTitle(const std::string& title) {
    tell("'", title, "'");
    const auto item = std::ranges::find(items_, title);
    if (item != items_.end()) selected = static_cast<int>(item - items_.begin());
}

PreferencesOutlets SimulatedPreferences::outlets() {
    return {window,
            tabView,
            rules,
            preference,
            learn,
            contactUs,
            freeApps,
            version,
            switchTimes,
            removeApplication,
            removeLocation,
            setUp,
            applications,
            locations,
            shortcuts,
            defaultInput,
            {autoStart, tip, follow, hidden, browser}};
}

} // namespace quorvane
