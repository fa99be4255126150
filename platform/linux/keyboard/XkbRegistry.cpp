#include "platform/linux/keyboard/XkbRegistry.h"

#include <algorithm>
#include <clocale>
#include <functional>
#include <libintl.h>
#include <memory>

#include <xkbcommon/xkbregistry.h>

namespace quorvane {
namespace {

constexpr const char* translations = "xkeyboard-config"; // the database's own gettext domain

std::string textOf(const char* text) {
    return text ? text : "";
}

std::string translated(const char* description) {
    if (!description) return {};
    bind_textdomain_codeset(translations, "UTF-8");
    return dgettext(translations, description);
}

struct RegistryDeleter {
    void operator()(rxkb_context* context) const { rxkb_context_unref(context); }
};

/// Calls it with every layout and its entry.
void forEachLayout(const std::function<void(const XkbLayout& layout, rxkb_layout* entry)>& call) {
    const std::unique_ptr<rxkb_context, RegistryDeleter> context(
        rxkb_context_new(RXKB_CONTEXT_LOAD_EXOTIC_RULES));
    if (!context || !rxkb_context_parse(context.get(), "evdev")) return;
    for (auto* entry = rxkb_layout_first(context.get()); entry; entry = rxkb_layout_next(entry))
        call({textOf(rxkb_layout_get_name(entry)), textOf(rxkb_layout_get_variant(entry))}, entry);
}

} // namespace

std::map<std::string, XkbLayoutNames> namesOfLayouts(const std::vector<XkbLayout>& layouts) {
    std::map<std::string, XkbLayoutNames> names;
    forEachLayout([&](const XkbLayout& layout, rxkb_layout* entry) {
        if (std::ranges::find(layouts, layout) == layouts.end()) return;
        names[layout.id()] = {translated(rxkb_layout_get_description(entry)),
                              textOf(rxkb_layout_get_brief(entry))};
    });
    return names;
}

std::vector<XkbLayout> layoutsOfNames(const std::vector<std::string>& names) {
    std::map<std::string, XkbLayout> found;
    forEachLayout([&](const XkbLayout& layout, rxkb_layout* entry) {
        const auto name = textOf(rxkb_layout_get_description(entry));
        if (std::ranges::find(names, name) != names.end()) found.try_emplace(name, layout);
    });
    std::vector<XkbLayout> layouts;
    layouts.reserve(names.size());
    for (const auto& name : names)
        layouts.push_back(found.try_emplace(name, XkbLayout{name, ""}).first->second);
    return layouts;
}

} // namespace quorvane
