#include "platform/linux/input-methods/ibus/IBusEngines.h"

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

/// Whether the one is to be taken for an id that both have. The order in which the daemon lists its engines
/// is another one at each start.
bool isBetter(const IBusEngine& one, const IBusEngine& other) {
    return std::tuple(one.rank, std::string_view(other.name)) >
           std::tuple(other.rank, std::string_view(one.name));
}

} // namespace

std::string idOfEngine(std::string_view name) {
    const auto layout = layoutOfID(name);
    if (!layout || layout->layout.empty()) return std::string(ibusIdPrefix).append(name);
    return layout->id();
}

std::string IBusEngine::id() const {
    return idOfEngine(name);
}

bool IBusEngine::isLayout() const {
    return layoutOfID(id()).has_value();
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

std::optional<IBusEngines> IBusEngines::ofList(GVariant* list) {
    if (!list || !g_variant_is_of_type(list, G_VARIANT_TYPE("av"))) return std::nullopt;
    std::vector<IBusEngine> engines;
    const auto count = g_variant_n_children(list);
    engines.reserve(count);
    bool isAllRead = true;
    for (gsize i = 0; i < count; ++i) {
        const GVariantRef entry(g_variant_get_child_value(list, i));
        const GVariantRef described(g_variant_get_variant(entry.get()));
        if (auto engine = engineOf(described.get()))
            engines.push_back(std::move(*engine));
        else
            isAllRead = false;
    }
    if (!isAllRead) logLine("IBus lists engines that cannot be read: they are left out");
    return IBusEngines(engines);
}

IBusEngines::IBusEngines(const std::vector<IBusEngine>& engines) {
    for (const auto& engine : engines) {
        const auto [added, isNew] = byName_.try_emplace(engine.name, engine);
        if (!isNew) continue;
        const auto [best, isFirst] = nameByID_.try_emplace(engine.id(), added->first);
        if (!isFirst && isBetter(added->second, byName_.at(best->second))) best->second = added->first;
    }
}

const IBusEngine* IBusEngines::named(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : &found->second;
}

const IBusEngine* IBusEngines::withID(std::string_view id) const {
    const auto found = nameByID_.find(id);
    return found == nameByID_.end() ? nullptr : named(found->second);
}

const IBusEngine* IBusEngines::methodForLocale(std::string_view locale) const {
    const auto country = locale.substr(0, locale.find_first_of(".@"));
    if (const auto* method = methodForLanguage(country)) return method;
    return methodForLanguage(country.substr(0, country.find('_')));
}

const IBusEngine* IBusEngines::methodForLanguage(std::string_view language) const {
    const IBusEngine* best = nullptr;
    for (const auto& [name, engine] : byName_) {
        // Without a rank it is not meant to be anybody's first one.
        if (engine.language != language || engine.rank == 0 || engine.isLayout()) continue;
        if (!best || isBetter(engine, *best)) best = &engine;
    }
    return best;
}

} // namespace quorvane
