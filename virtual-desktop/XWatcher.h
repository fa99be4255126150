#pragma once

#include <chrono>
#include <optional>

#include "virtual-desktop/XClient.h"

namespace quorvane {

/// A client that also watches: it sees the focus, the keys and the layout as a user's programs do, and when.
/// Nothing comes between an event and its time: calls are sent at once but not waited for, and Qt's event
/// loop must not run, as it would take the events.
class XWatcher : public XClient {
public:
    using Clock = std::chrono::steady_clock;

    XWatcher();

    /// From now on, the focus and the keys that this window gets are seen, whoever's it is.
    void watch(xcb_window_t window);

    struct Seen {
        enum class What { focusIn, layout, key } what;
        xcb_window_t window; ///< The one that got the focus or the key.
        int group;           ///< The layout's, or the one the key was pressed in.
        Clock::time_point time;
    };

    /// The next thing that was seen; none when the time is over.
    std::optional<Seen> nextSeen(Clock::time_point deadline);

private:
    void deliver() override;
    std::optional<Seen> interpret(const xcb_generic_event_t& event) const;

    std::uint8_t xkbEvent_;
};

} // namespace quorvane
