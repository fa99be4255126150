#include "platform/simulated/SimulatedInterfaceFiles.h"

namespace quorvane {

std::unique_ptr<PreferencesInterface> SimulatedInterfaceFiles::loadPreferences() {
    auto loaded = std::make_unique<SimulatedPreferences>(preferencesTitle, notifications_);
    loadedPreferences.push_back(loaded.get());
    return loaded;
}

} // namespace quorvane
