#include "platform/simulated/SimulatedInterfaceFiles.h"

namespace quorvane {

std::unique_ptr<Window> SimulatedInterfaceFiles::loadWindow(std::string_view nibName) {
    if (!hasWindow(nibName)) return nullptr;
    auto loaded = std::make_unique<SimulatedWindow>(preferencesTitle, notifications_);
    loadedWindows.push_back(loaded.get());
    return loaded;
}

} // namespace quorvane
