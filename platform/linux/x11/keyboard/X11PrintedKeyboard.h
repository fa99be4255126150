#pragma once

#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The X server's keyboard: every question is a round trip.
class X11PrintedKeyboard : public PrintedKeyboard {
public:
    explicit X11PrintedKeyboard(XConnection& x);

    ModifierBits modifierBits() override;
    std::vector<TypedKeysyms> typedKeysyms() override;
    std::uint32_t heldState() override;

private:
    XConnection& x_;
    Subscription events_;
};

} // namespace quorvane
