#include "platform/linux/x11/keyboard/X11PrintedKeyboard.h"

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/KeyboardMap.h"

namespace quorvane {

X11PrintedKeyboard::X11PrintedKeyboard(XConnection& x)
    : x_(x)
    , events_(x.onEvent([this](const auto& event) {
        if (isKeyboardMapEvent(x_, event)) changed.emit();
    })) {
    selectKeyboardMapEvents(x);
}

ModifierBits X11PrintedKeyboard::modifierBits() {
    return readModifierBits(x_).value_or(ModifierBits{});
}

std::vector<TypedKeysyms> X11PrintedKeyboard::typedKeysyms() {
    return readTypedKeysyms(x_);
}

std::uint32_t X11PrintedKeyboard::heldState() {
    const XcbReply<xcb_query_pointer_reply_t> state(
        xcb_query_pointer_reply(x_.xcb(), xcb_query_pointer(x_.xcb(), x_.root()), nullptr));
    return state ? state->mask : 0;
}

} // namespace quorvane
