#pragma once

#include <cstdint>
#include <string>

#include "platform/Subscription.h"
#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/keyboard/XkbLayouts.h"

namespace quorvane {

/// The X server's core keyboard: its groups (up to four layouts at a time) and which of them is locked.
class XkbKeyboard : public LayoutKeyboard {
public:
    /// Says so in one line when the server has no XKB; the keyboard then has no groups.
    explicit XkbKeyboard(XConnection& x);

    /// As the server and the root window tell now: one round trip.
    KeyboardLayouts layouts() const override;

    /// Asking the server would take longer than the switch itself while a window manager is busy.
    unsigned effectiveGroup() const override { return group_; }

    /// One round trip.
    void readGroup() override;

    void lockGroup(unsigned group) override;

private:
    XkbMapDescription readMap() const;
    void handleEvent(const xcb_generic_event_t& event);
    void handleGroup(std::uint32_t sequence, unsigned group);

    XConnection& x_;
    std::uint8_t firstEvent_ = 0; // 0: no XKB
    unsigned group_ = 0;
    std::uint32_t lockRequest_ =
        0; ///< The sequence number of the last lock. Older events tell of what it ended.
    Subscription events_;
};

} // namespace quorvane
