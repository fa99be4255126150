#include "platform/linux/keyboard/XkbLayoutKeys.h"

#include <memory>

#include <xkbcommon/xkbcommon.h>

#include "platform/linux/keyboard/XkbContext.h"

namespace quorvane {
namespace {

struct KeymapDeleter {
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
};
using KeymapRef = std::unique_ptr<xkb_keymap, KeymapDeleter>;

constexpr const char* letterKey = "AC01"; // left of the middle row: A, or Q in French layouts

/// Null when it is not installed.
KeymapRef keymapOf(const XkbLayout& layout) {
    const auto context = newXkbContext();
    if (!context) return nullptr;
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL); // a layout may be missing
    const xkb_rule_names names{.rules = "evdev",
                               .model = "pc105",
                               .layout = layout.layout.c_str(),
                               .variant = layout.variant.c_str(),
                               .options = ""};
    return KeymapRef(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

/// XKB_KEY_NoSymbol when it gives none, or several.
xkb_keysym_t keysymOf(xkb_keymap* keymap, xkb_keycode_t key, xkb_level_index_t level = 0) {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, key, 0, level, &symbols);
    return count == 1 ? symbols[0] : xkb_keysym_t{XKB_KEY_NoSymbol};
}

} // namespace

bool hasLatinLetters(const XkbLayout& layout) {
    const auto keymap = keymapOf(layout);
    if (!keymap) return false;
    const auto keysym = keysymOf(keymap.get(), xkb_keymap_key_by_name(keymap.get(), letterKey));
    return keysym >= XKB_KEY_a && keysym <= XKB_KEY_z;
}

TypedKeysyms typedKeysymsOf(const XkbLayout& layout, TypedWith with) {
    constexpr xkb_keycode_t lastOfX = 255;
    TypedKeysyms keysyms;
    const auto keymap = keymapOf(layout);
    if (!keymap) return keysyms;
    const xkb_level_index_t level = with == TypedWith::shift ? 1 : 0; // In every layout of the database.
    for (auto key = xkb_keymap_min_keycode(keymap.get()); key <= lastOfX; ++key) {
        const auto keysym = keysymOf(keymap.get(), key, level);
        if (keysym != XKB_KEY_NoSymbol) keysyms[static_cast<std::uint8_t>(key)] = keysym;
    }
    return keysyms;
}

} // namespace quorvane
