#include "platform/linux/keyboard/ModifierKeys.h"

#include <algorithm>

#include <X11/keysym.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

struct Modifier {
    xcb_keysym_t keysym;
    std::uint64_t flags;
};

constexpr std::array modifiers = {
    Modifier{XK_Shift_L, ModifierFlag::shift | ModifierFlag::leftShift},
    Modifier{XK_Shift_R, ModifierFlag::shift | ModifierFlag::rightShift},
    Modifier{XK_Control_L, ModifierFlag::control | ModifierFlag::leftControl},
    Modifier{XK_Control_R, ModifierFlag::control | ModifierFlag::rightControl},
    Modifier{XK_Alt_L, ModifierFlag::option | ModifierFlag::leftOption},
    Modifier{XK_Alt_R, ModifierFlag::option | ModifierFlag::rightOption},
    Modifier{XK_ISO_Level3_Shift, ModifierFlag::option | ModifierFlag::rightOption},
    Modifier{XK_Super_L, ModifierFlag::command | ModifierFlag::leftCommand},
    Modifier{XK_Super_R, ModifierFlag::command | ModifierFlag::rightCommand},
    Modifier{XK_Meta_L, ModifierFlag::command | ModifierFlag::leftCommand},
    Modifier{XK_Meta_R, ModifierFlag::command | ModifierFlag::rightCommand},
    Modifier{XK_Caps_Lock, ModifierFlag::capsLock},
};

std::uint64_t flagsOf(xcb_keysym_t keysym) {
    const auto* const modifier = std::ranges::find(modifiers, keysym, &Modifier::keysym);
    return modifier == modifiers.end() ? 0 : modifier->flags;
}

} // namespace

void ModifierKeys::start(XConnection& x) {
    const auto keymapCookie = xcb_query_keymap(x.xcb());
    readMap(x);
    const XcbReply<xcb_query_keymap_reply_t> keymap(xcb_query_keymap_reply(x.xcb(), keymapCookie, nullptr));
    for (std::size_t key = 0; keymap && key < keycodes; ++key) {
        isDown_[key] = (keymap->keys[key / 8] >> (key % 8)) & 1;
    }
}

bool ModifierKeys::take(XConnection& x, std::uint32_t keycode, bool isDown) {
    if (!isMapKnown_) readMap(x);
    if (keycode >= keycodes) return false;
    isDown_[keycode] = isDown; // Of every key: the next map may make it a modifier.
    return flagsOf_[keycode] != 0;
}

std::uint64_t ModifierKeys::flags(XConnection& x) const {
    const auto pointerCookie = xcb_query_pointer(x.xcb(), x.root());
    std::uint64_t flags = ModifierFlag::nonCoalesced;
    for (std::size_t key = 0; key < keycodes; ++key) {
        if (isDown_[key]) flags |= flagsOf_[key] & ~ModifierFlag::capsLock;
    }
    const XcbReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(x.xcb(), pointerCookie, nullptr));
    if (pointer && (pointer->mask & XCB_MOD_MASK_LOCK)) flags |= ModifierFlag::capsLock;
    return flags;
}

void ModifierKeys::readMap(XConnection& x) {
    const auto* setup = xcb_get_setup(x.xcb());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const XcbReply<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(x.xcb(), xcb_get_keyboard_mapping(x.xcb(), first, count), nullptr));
    if (!map) return;
    isMapKnown_ = true;
    const auto* keysyms = xcb_get_keyboard_mapping_keysyms(map.get());
    for (std::size_t i = 0; i < count; ++i)
        flagsOf_[first + i] = flagsOf(keysyms[i * map->keysyms_per_keycode]);
}

} // namespace quorvane
