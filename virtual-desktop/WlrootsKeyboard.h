#pragma once

#include <functional>

#include <QByteArray>

#include "virtual-desktop/WaylandClient.h"
#include "virtual-desktop/XkbKeymap.h"

struct zwp_virtual_keyboard_v1;

namespace quorvane {

/// A keyboard of the seat of a wlroots compositor, which has none without hardware. Unplugged with this
/// object.
class WlrootsKeyboard {
public:
    /// With these layouts, separated by commas. `selected` tells which of them is selected now: whoever says
    /// which modifiers are held must say that, too.
    WlrootsKeyboard(const QByteArray& layouts, std::function<unsigned()> selected);

    void send(std::uint8_t keycode, bool isPressed); ///< By the number of the hardware.

private:
    WaylandClient client_;
    std::function<unsigned()> selected_;
    XkbContext context_{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    XkbKeymap keymap_;
    XkbState state_;
    zwp_virtual_keyboard_v1* keyboard_; ///< Goes with the connection.
};

} // namespace quorvane
