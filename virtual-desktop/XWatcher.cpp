#include "virtual-desktop/XWatcher.h"

#include <poll.h>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"

namespace quorvane {

XWatcher::XWatcher() : xkbEvent_(xcb_get_extension_data(xcb(), &xcb_xkb_id)->first_event) {
    xcb_xkb_select_events_details_t details{};
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(xcb(), XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0,
                              &details);
    xcb_flush(xcb());
}

void XWatcher::deliver() {
    xcb_flush(xcb());
}

void XWatcher::watch(xcb_window_t window) {
    const std::uint32_t events = XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS;
    xcb_change_window_attributes(xcb(), window, XCB_CW_EVENT_MASK, &events);
    deliver();
}

std::optional<XWatcher::Seen> XWatcher::nextSeen(Clock::time_point deadline) {
    for (;;) {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(xcb())}) {
            if (auto seen = interpret(*event)) return seen;
        }
        const auto left = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now()).count();
        if (left <= 0) return std::nullopt;
        pollfd descriptor{xcb_get_file_descriptor(xcb()), POLLIN, 0};
        const timespec wait{left / 1000000, left % 1000000 * 1000};
        ppoll(&descriptor, 1, &wait, nullptr);
    }
}

std::optional<XWatcher::Seen> XWatcher::interpret(const xcb_generic_event_t& event) const {
    const auto now = Clock::now();
    const auto type = event.response_type & 0x7f;
    if (type == XCB_FOCUS_IN) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        const bool isReal = focus.mode == XCB_NOTIFY_MODE_NORMAL && focus.detail != XCB_NOTIFY_DETAIL_POINTER;
        if (isReal) return Seen{Seen::What::focusIn, focus.event, 0, now};
    } else if (type == XCB_KEY_PRESS) {
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
        return Seen{Seen::What::key, key.event, key.state >> 13 & 3, now};
    } else if (type == xkbEvent_) {
        const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
        if (state.xkbType == XCB_XKB_STATE_NOTIFY)
            return Seen{Seen::What::layout, XCB_WINDOW_NONE, state.group, now};
    }
    return std::nullopt;
}

} // namespace quorvane
