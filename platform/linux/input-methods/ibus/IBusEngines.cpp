#include "platform/linux/input-methods/ibus/IBusEngines.h"

#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

/// Places in the description of an engine. Newer versions of IBus append more.
enum Field : gsize {
    typeName = 0,
    name = 2,
    longName = 3,
    language = 5,
    icon = 8,
    rank = 10,
    symbol = 12,
    textDomain = 17,
};

GVariantRef fieldOf(GVariant* described, gsize field, const GVariantType* type) {
    if (field >= g_variant_n_children(described)) return nullptr;
    GVariantRef value(g_variant_get_child_value(described, field));
    return g_variant_is_of_type(value.get(), type) ? std::move(value) : nullptr;
}

std::string textOf(GVariant* described, gsize field) {
    const auto value = fieldOf(described, field, G_VARIANT_TYPE_STRING);
    return value ? g_variant_get_string(value.get(), nullptr) : "";
}

} // namespace

std::string idOfEngine(std::string_view name) {
    const auto layout = layoutOfID(name);
    if (!layout || layout->layout.empty()) return std::string(ibusIdPrefix).append(name);
    return layout->id();
}

std::optional<IBusEngine> engineOf(GVariant* described) {
    if (g_variant_is_of_type(described, G_VARIANT_TYPE_VARIANT)) {
        const GVariantRef unboxed(g_variant_get_variant(described));
        return engineOf(unboxed.get());
    }
    if (!g_variant_is_of_type(described, G_VARIANT_TYPE_TUPLE)) return std::nullopt;
    const auto rank = fieldOf(described, Field::rank, G_VARIANT_TYPE_UINT32);
    IBusEngine engine{.name = textOf(described, Field::name),
                      .longName = textOf(described, Field::longName),
                      .language = textOf(described, Field::language),
                      .icon = textOf(described, Field::icon),
                      .symbol = textOf(described, Field::symbol),
                      .textDomain = textOf(described, Field::textDomain),
                      .rank = rank ? g_variant_get_uint32(rank.get()) : 0};
    if (textOf(described, Field::typeName) != "IBusEngineDesc" || engine.name.empty()) return std::nullopt;
    return engine;
}

std::optional<std::vector<IBusEngine>> enabledEngines(GVariant* installed,
                                                      const std::vector<std::string>& names,
                                                      const std::vector<std::string>& layoutIDs) {
    if (!installed || !g_variant_is_of_type(installed, G_VARIANT_TYPE("av"))) return std::nullopt;
    std::map<std::string, IBusEngine> byName;
    std::map<std::string, IBusEngine> byID;
    bool isAllRead = true;
    for (gsize place = 0; place < g_variant_n_children(installed); ++place) {
        const GVariantRef entry(g_variant_get_child_value(installed, place));
        const auto engine = engineOf(entry.get());
        isAllRead = isAllRead && engine;
        if (!engine) continue;
        byName.try_emplace(engine->name, *engine);
        // The order of the list is another one at each start of the daemon.
        const auto [best, isFirst] = byID.try_emplace(idOfEngine(engine->name), *engine);
        if (!isFirst &&
            std::tuple(engine->rank, best->second.name) > std::tuple(best->second.rank, engine->name))
            best->second = *engine;
    }
    if (!isAllRead) logLine("IBus lists engines that cannot be read: they are left out");

    std::vector<IBusEngine> enabled;
    std::set<std::string> ids;
    const auto enable = [&](const std::map<std::string, IBusEngine>& engines, const std::string& key) {
        const auto engine = engines.find(key);
        if (engine != engines.end() && ids.insert(idOfEngine(engine->second.name)).second)
            enabled.push_back(engine->second);
    };
    for (const auto& name : names)
        enable(byName, name);
    if (!enabled.empty()) return enabled;
    for (const auto& id : layoutIDs)
        enable(byID, id);
    return enabled;
}

} // namespace quorvane
