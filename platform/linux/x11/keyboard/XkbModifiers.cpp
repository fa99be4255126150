#include "platform/linux/x11/keyboard/XkbModifiers.h"

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"

namespace quorvane {
namespace {

constexpr std::uint16_t modifierParts = XCB_XKB_STATE_PART_MODIFIER_BASE | XCB_XKB_STATE_PART_MODIFIER_LOCK;

/// Leaves alone which other parts of the keyboard's state the connection is told of.
void select(xcb_connection_t* xcb, std::uint16_t parts) {
    xcb_xkb_select_events_details_t details{};
    details.affectState = modifierParts;
    details.stateDetails = parts;
    xcb_xkb_select_events_aux(xcb, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0,
                              &details);
}

} // namespace

XkbModifiers::XkbModifiers(XConnection& x)
    : x_(x)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {}

bool XkbModifiers::watch(bool isOn) {
    if (!selectKeyboardMapEvents(x_)) return false;
    firstEvent_ = isOn ? xcb_get_extension_data(x_.xcb(), &xcb_xkb_id)->first_event : 0;
    select(x_.xcb(), isOn ? modifierParts : 0);
    if (!isOn) return true;
    // Also waits until the server has begun to tell.
    const XcbReply<xcb_xkb_get_state_reply_t> now(
        xcb_xkb_get_state_reply(x_.xcb(), xcb_xkb_get_state(x_.xcb(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
    if (now) take(now->baseMods, now->lockedMods);
    return true;
}

void XkbModifiers::handle(const xcb_generic_event_t& event) {
    if (!firstEvent_) return;
    if (isKeyboardMapEvent(x_, event)) bits_.reset();
    if ((event.response_type & 0x7f) != firstEvent_) return;
    const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
    if (state.xkbType != XCB_XKB_STATE_NOTIFY || !(state.changed & modifierParts)) return;
    const auto before = flags_;
    take(state.baseMods, state.lockedMods);
    if (flags_ != before) changed.emit(state.time);
}

void XkbModifiers::take(std::uint8_t held, std::uint8_t locked) {
    if (!bits_) bits_ = readModifierBits(x_);
    const auto bits = bits_.value_or(ModifierBits{});
    flags_ = ModifierFlag::nonCoalesced;
    if (locked & XCB_MOD_MASK_LOCK) flags_ |= ModifierFlag::capsLock;
    if (held & XCB_MOD_MASK_SHIFT) flags_ |= ModifierFlag::shift;
    if (held & XCB_MOD_MASK_CONTROL) flags_ |= ModifierFlag::control;
    if (held & bits.option) flags_ |= ModifierFlag::option;
    if (held & bits.command) flags_ |= ModifierFlag::command;
}

} // namespace quorvane
