#include "platform/linux/x11/keyboard/XkbKeyboard.h"

#include "platform/linux/Log.h"
#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"

namespace quorvane {
namespace {

constexpr std::string_view rulesNamesProperty =
    "_XKB_RULES_NAMES"; // rules, model, layouts, variants, options
constexpr std::size_t layoutsField = 2;
constexpr std::size_t variantsField = 3;
constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;

/// Group events only: with modifiers among them, every Shift key would wake the program.
void selectEvents(xcb_connection_t* xcb) {
    constexpr std::uint16_t groupParts = XCB_XKB_STATE_PART_GROUP_STATE | XCB_XKB_STATE_PART_GROUP_LOCK;
    constexpr std::uint16_t newKeyboardParts = XCB_XKB_NKN_DETAIL_KEYCODES | XCB_XKB_NKN_DETAIL_DEVICE_ID;
    xcb_xkb_select_events_details_t details{};
    details.affectState = groupParts;
    details.stateDetails = groupParts;
    details.affectNewKeyboard = newKeyboardParts;
    details.newKeyboardDetails = newKeyboardParts;
    constexpr std::uint16_t affected = XCB_XKB_EVENT_TYPE_STATE_NOTIFY |
                                       XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t wholeMap = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS;
    xcb_xkb_select_events_aux(xcb, coreKeyboard, affected, 0, XCB_XKB_EVENT_TYPE_MAP_NOTIFY, wholeMap,
                              wholeMap, &details);
}

std::string nameOfAtom(xcb_connection_t* xcb, xcb_get_atom_name_cookie_t cookie) {
    const XcbReply<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(xcb, cookie, nullptr));
    if (!reply) return {};
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

/// Fills in the names of the symbols and of the groups, which the server keeps as atoms.
void readNames(xcb_connection_t* xcb, const xcb_xkb_get_names_reply_t& reply, XkbMapDescription& map) {
    xcb_xkb_get_names_value_list_t names{};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(&reply), reply.nTypes, reply.indicators,
                                        reply.virtualMods, reply.groupNames, reply.nKeys, reply.nKeyAliases,
                                        reply.nRadioGroups, reply.which, &names);
    const auto symbols = xcb_get_atom_name(xcb, names.symbolsName);
    std::vector<xcb_get_atom_name_cookie_t> groups;
    const auto groupCount = xcb_xkb_get_names_value_list_groups_length(&reply, &names);
    groups.reserve(static_cast<std::size_t>(groupCount));
    for (int group = 0; group < groupCount; ++group)
        groups.push_back(xcb_get_atom_name(xcb, names.groups[group]));
    map.symbols = nameOfAtom(xcb, symbols);
    for (const auto cookie : groups)
        map.groupNames.push_back(nameOfAtom(xcb, cookie));
}

} // namespace

XkbKeyboard::XkbKeyboard(XConnection& x) : x_(x) {
    auto* xcb = x_.xcb();
    const auto* extension = xcb_get_extension_data(xcb, &xcb_xkb_id);
    if (!extension || !extension->present) {
        logLine("the X server has no XKB extension: there are no input sources to select");
        return;
    }
    firstEvent_ = extension->first_event;
    const auto use = xcb_xkb_use_extension(xcb, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    selectEvents(xcb);
    x_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    const XcbReply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(xcb, use, nullptr));
    events_ = x_.onEvent([this](const xcb_generic_event_t& event) { handleEvent(event); });
    readGroup();
}

KeyboardLayouts XkbKeyboard::layouts() const {
    auto map = readMap();
    return {layoutsOfGroups(map), std::move(map.groupNames)};
}

XkbMapDescription XkbKeyboard::readMap() const {
    XkbMapDescription map;
    if (!firstEvent_) return map;
    auto* xcb = x_.xcb();
    const auto controls = xcb_xkb_get_controls(xcb, coreKeyboard);
    const auto names =
        xcb_xkb_get_names(xcb, coreKeyboard, XCB_XKB_NAME_DETAIL_SYMBOLS | XCB_XKB_NAME_DETAIL_GROUP_NAMES);
    const auto declared = XProperty(x_, x_.root(), rulesNamesProperty).texts();

    const XcbReply<xcb_xkb_get_controls_reply_t> controlsReply(
        xcb_xkb_get_controls_reply(xcb, controls, nullptr));
    if (controlsReply) map.groupCount = controlsReply->numGroups;
    const XcbReply<xcb_xkb_get_names_reply_t> namesReply(xcb_xkb_get_names_reply(xcb, names, nullptr));
    if (namesReply) readNames(xcb, *namesReply, map);
    if (declared.size() > layoutsField) map.declaredLayouts = declared[layoutsField];
    if (declared.size() > variantsField) map.declaredVariants = declared[variantsField];
    return map;
}

void XkbKeyboard::readGroup() {
    if (!firstEvent_) return;
    auto* xcb = x_.xcb();
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(xcb, xcb_xkb_get_state(xcb, coreKeyboard), nullptr));
    if (state) group_ = state->group;
}

void XkbKeyboard::lockGroup(unsigned group) {
    if (!firstEvent_) return;
    // A latched group would be added to the locked one at the next key.
    constexpr std::uint8_t lock = 1;
    constexpr std::uint8_t unlatch = 1;
    lockRequest_ = xcb_xkb_latch_lock_state(x_.xcb(), coreKeyboard, 0, 0, lock,
                                            static_cast<std::uint8_t>(group), 0, unlatch, 0)
                       .sequence;
    group_ = group;
    // Now, not before the loop next sleeps: the user may be typing already.
    xcb_flush(x_.xcb());
}

void XkbKeyboard::handleEvent(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7f;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (notify.window == x_.root() && notify.atom == x_.atom(rulesNamesProperty)) mapChanged.emit();
    } else if (type == firstEvent_) {
        const auto& notify = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
        if (notify.xkbType == XCB_XKB_STATE_NOTIFY)
            handleGroup(event.full_sequence, notify.group);
        else if (notify.xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY || notify.xkbType == XCB_XKB_MAP_NOTIFY)
            mapChanged.emit();
    }
}

void XkbKeyboard::handleGroup(std::uint32_t sequence, unsigned group) {
    const bool isOlderThanLock = static_cast<std::int32_t>(sequence - lockRequest_) < 0;
    if (!isOlderThanLock) group_ = group;
    groupChanged.emit(group_);
}

} // namespace quorvane
