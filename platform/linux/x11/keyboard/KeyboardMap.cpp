#include "platform/linux/x11/keyboard/KeyboardMap.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

#include <X11/keysym.h>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"

namespace quorvane {

namespace {

/// The keys of each modifier bit, and what is on each key.
class KeyboardMapping {
public:
    explicit KeyboardMapping(xcb_connection_t* xcb) : first_(xcb_get_setup(xcb)->min_keycode) {
        const auto count = static_cast<std::uint8_t>(xcb_get_setup(xcb)->max_keycode - first_ + 1);
        const auto modifiers = xcb_get_modifier_mapping(xcb);
        const auto keyboard = xcb_get_keyboard_mapping(xcb, first_, count);
        modifiers_.reset(xcb_get_modifier_mapping_reply(xcb, modifiers, nullptr));
        keyboard_.reset(xcb_get_keyboard_mapping_reply(xcb, keyboard, nullptr));
    }

    bool isKnown() const { return modifiers_ && keyboard_; }

    /// The modifier bit with a key that carries one of these; 0 when there is none. What a key carries in
    /// its first places counts first: keymaps have keys that no keyboard has, with a modifier in the second.
    std::uint16_t bitOf(std::initializer_list<xcb_keysym_t> wanted) const {
        for (int place = 0; place < keyboard_->keysyms_per_keycode; ++place) {
            for (int modifier = XCB_MAP_INDEX_1; modifier <= XCB_MAP_INDEX_5; ++modifier) {
                if (carries(modifier, place, wanted)) return static_cast<std::uint16_t>(1U << modifier);
            }
        }
        return 0;
    }

private:
    bool carries(int modifier, int place, std::initializer_list<xcb_keysym_t> wanted) const {
        const std::ptrdiff_t perModifier = modifiers_->keycodes_per_modifier;
        const auto* keys = xcb_get_modifier_mapping_keycodes(modifiers_.get()) + modifier * perModifier;
        return std::any_of(keys, keys + perModifier, [&](xcb_keycode_t key) {
            const int index = (key - first_) * keyboard_->keysyms_per_keycode + place;
            if (key < first_ || index >= xcb_get_keyboard_mapping_keysyms_length(keyboard_.get()))
                return false;
            return std::ranges::count(wanted, xcb_get_keyboard_mapping_keysyms(keyboard_.get())[index]) > 0;
        });
    }

    xcb_keycode_t first_;
    XcbReply<xcb_get_modifier_mapping_reply_t> modifiers_;
    XcbReply<xcb_get_keyboard_mapping_reply_t> keyboard_;
};

constexpr std::size_t mostGroups = 4;

void addKey(std::vector<TypedKeysyms>& groups, std::uint8_t keycode, const xcb_xkb_key_sym_map_t& key) {
    const auto* const keysyms = xcb_xkb_key_sym_map_syms(&key);
    const std::size_t groupCount = key.groupInfo & 0xf;
    for (std::size_t group = 0; group < mostGroups && groupCount; ++group) {
        const auto place = group % groupCount * key.width; // A key with fewer groups uses them in turn.
        if (place < key.nSyms) groups[group][keycode] = keysyms[place];
    }
}

} // namespace

std::optional<ModifierBits> readModifierBits(XConnection& x) {
    const KeyboardMapping mapping(x.xcb());
    if (!mapping.isKnown()) return std::nullopt;
    return ModifierBits{mapping.bitOf({XK_Alt_L, XK_Alt_R}), mapping.bitOf({XK_Super_L, XK_Super_R}),
                        mapping.bitOf({XK_Num_Lock})};
}

std::vector<TypedKeysyms> readTypedKeysyms(XConnection& x) {
    std::vector<TypedKeysyms> groups;
    auto* xcb = x.xcb();
    const auto* extension = xcb_get_extension_data(xcb, &xcb_xkb_id);
    if (!extension || !extension->present) return groups;
    const auto first = xcb_get_setup(xcb)->min_keycode;
    const auto count = static_cast<std::uint8_t>(xcb_get_setup(xcb)->max_keycode - first + 1);
    xcb_discard_reply(xcb, xcb_xkb_use_extension(xcb, 1, 0).sequence);
    const auto cookie = xcb_xkb_get_map(xcb, XCB_XKB_ID_USE_CORE_KBD, 0, XCB_XKB_MAP_PART_KEY_SYMS, 0, 0,
                                        first, count, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    const XcbReply<xcb_xkb_get_map_reply_t> reply(xcb_xkb_get_map_reply(xcb, cookie, nullptr));
    if (!reply) return groups;
    xcb_xkb_get_map_map_t map{};
    xcb_xkb_get_map_map_unpack(xcb_xkb_get_map_map(reply.get()), reply->nTypes, reply->nKeySyms,
                               reply->nKeyActions, reply->totalActions, reply->totalKeyBehaviors,
                               reply->virtualMods, reply->totalKeyExplicit, reply->totalModMapKeys,
                               reply->totalVModMapKeys, reply->present, &map);
    groups.resize(mostGroups);
    auto keycode = reply->firstKeySym;
    for (auto key = xcb_xkb_get_map_map_syms_rtrn_iterator(reply.get(), &map); key.rem;
         xcb_xkb_key_sym_map_next(&key))
        addKey(groups, keycode++, *key.data);
    return groups;
}

bool selectKeyboardMapEvents(XConnection& x) {
    const auto* xkb = xcb_get_extension_data(x.xcb(), &xcb_xkb_id);
    if (!xkb || !xkb->present) return false; // Its own events need not be selected.
    // Once anybody on this connection speaks XKB, the server tells of a new map by XKB's events only. They
    // are rare and others may want them as well, so nobody ever deselects them.
    constexpr std::uint16_t mapEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t allMapParts = 0xff;
    xcb_discard_reply(x.xcb(), xcb_xkb_use_extension(x.xcb(), 1, 0).sequence);
    xcb_xkb_select_events(x.xcb(), XCB_XKB_ID_USE_CORE_KBD, mapEvents, 0, mapEvents, allMapParts, allMapParts,
                          nullptr);
    return true;
}

bool isKeyboardMapEvent(XConnection& x, const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY) return true;
    const auto* xkb = xcb_get_extension_data(x.xcb(), &xcb_xkb_id);
    if (!xkb || !xkb->present || type != xkb->first_event) return false;
    const auto xkbType = reinterpret_cast<const xcb_xkb_map_notify_event_t&>(event).xkbType;
    return xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY || xkbType == XCB_XKB_MAP_NOTIFY;
}

} // namespace quorvane
