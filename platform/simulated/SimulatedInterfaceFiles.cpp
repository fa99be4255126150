#include "platform/simulated/SimulatedInterfaceFiles.h"

namespace quorvane {

std::unique_ptr<PreferencesInterface> SimulatedInterfaceFiles::loadPreferences() {
    journal_.add("load preferences");
    auto loaded = std::make_unique<SimulatedPreferences>(journal_, preferencesTitle, notifications_);
    loadedPreferences.push_back(loaded.get());
    return loaded;
}

} // namespace quorvane
