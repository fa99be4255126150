#include "platform/linux/keyboard/XkbLatin.h"

#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace quorvane {
namespace {

struct ContextDeleter {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};
struct KeymapDeleter {
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
};

constexpr const char* letterKey = "AC01"; // left of the middle row: A, or Q in French layouts

} // namespace

bool hasLatinLetters(const XkbLayout& layout) {
    const std::unique_ptr<xkb_context, ContextDeleter> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!context) return false;
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL); // a layout may be missing
    const xkb_rule_names names{.rules = "evdev",
                               .model = "pc105",
                               .layout = layout.layout.c_str(),
                               .variant = layout.variant.c_str(),
                               .options = ""};
    const std::unique_ptr<xkb_keymap, KeymapDeleter> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap) return false;
    const xkb_keysym_t* symbols = nullptr;
    const auto key = xkb_keymap_key_by_name(keymap.get(), letterKey);
    const int count = xkb_keymap_key_get_syms_by_level(keymap.get(), key, 0, 0, &symbols);
    return count == 1 && symbols[0] >= XKB_KEY_a && symbols[0] <= XKB_KEY_z;
}

} // namespace quorvane
