#include "platform/linux/input-methods/ibus/IBusEnabledEngines.h"

#include <algorithm>
#include <set>

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

const IBusEngine* engineOfSource(const IBusEngines& installed, const DesktopInputSource& source) {
    if (source.type == "ibus") return installed.named(source.name);
    if (source.type != "xkb") return nullptr;
    const auto plus = source.name.find('+');
    const auto variant = plus == std::string::npos ? std::string() : source.name.substr(plus + 1);
    return installed.withID(XkbLayout{source.name.substr(0, plus), variant}.id());
}

void dropMissingAndRepeated(std::vector<const IBusEngine*>& engines) {
    std::set<std::string> ids;
    std::erase_if(engines, [&](const auto* engine) { return !engine || !ids.insert(engine->id()).second; });
}

} // namespace

std::vector<const IBusEngine*> enabledEngines(const IBusEngines& installed,
                                              const IBusEnabledSettings& settings) {
    std::vector<const IBusEngine*> engines;
    for (const auto& name : settings.preloadEngines)
        engines.push_back(installed.named(name));
    dropMissingAndRepeated(engines);
    if (!engines.empty()) return engines;

    for (const auto& source : settings.desktopSources)
        engines.push_back(engineOfSource(installed, source));
    dropMissingAndRepeated(engines);
    if (!engines.empty()) return engines;

    for (const auto& id : settings.layoutIDs)
        engines.push_back(installed.withID(id));
    engines.push_back(installed.methodForLocale(settings.locale));
    dropMissingAndRepeated(engines);
    return engines;
}

} // namespace quorvane
