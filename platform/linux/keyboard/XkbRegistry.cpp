#include "platform/linux/keyboard/XkbRegistry.h"

#include <clocale>
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

} // namespace

std::map<std::string, XkbLayoutNames> namesOfLayouts(const std::vector<XkbLayout>& layouts) {
    std::map<std::string, XkbLayoutNames> names;
    const std::unique_ptr<rxkb_context, RegistryDeleter> context(
        rxkb_context_new(RXKB_CONTEXT_LOAD_EXOTIC_RULES));
    if (!context || !rxkb_context_parse(context.get(), "evdev")) return names;
    for (auto* entry = rxkb_layout_first(context.get()); entry; entry = rxkb_layout_next(entry)) {
        const XkbLayout layout{textOf(rxkb_layout_get_name(entry)), textOf(rxkb_layout_get_variant(entry))};
        for (const auto& wanted : layouts) {
            if (wanted != layout) continue;
            names[layout.id()] = {translated(rxkb_layout_get_description(entry)),
                                  textOf(rxkb_layout_get_brief(entry))};
        }
    }
    return names;
}

} // namespace quorvane
