#pragma once

#include <cstdint>
#include <string>

#include "platform/Signal.h"
#include "platform/linux/keyboard/XkbLayouts.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The X server's core keyboard: its groups (up to four layouts at a time) and which of them is locked.
class XkbKeyboard {
public:
    /// Says so in one line when the server has no XKB; the keyboard then has no groups.
    explicit XkbKeyboard(XConnection& x);

    /// What the server and the root window tell about the keyboard map now: one round trip.
    XkbMapDescription readMap() const;

    /// The group that typing uses, as of the last event and the last lock: asking the server would take
    /// longer than the switch itself while a window manager is busy. After a shorter list of layouts was set
    /// it can lie beyond the last group, until the next key brings it back.
    unsigned effectiveGroup() const { return group_; }

    /// Asks the server, which does not tell of what a change of the map does to the group.
    void readGroup();

    /// Makes a group the one that typing uses.
    void lockGroup(unsigned group);

    Signal<unsigned> groupChanged; ///< The effective group, whoever changed it, this program included.
    Signal<> mapChanged;           ///< Comes several times for one change.

private:
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
