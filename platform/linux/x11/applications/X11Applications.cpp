#include "platform/linux/x11/applications/X11Applications.h"

#include <algorithm>
#include <optional>

#include "platform/linux/Log.h"
#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

X11Applications::X11Applications(XConnection& x, X11WindowOwners& owners, SessionWorkspace& workspace)
    : x_(x)
    , owners_(owners)
    , workspace_(workspace)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_STATE",
                    "_NET_WM_STATE_HIDDEN", "WM_STATE"});
    x_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    readStart();
}

void X11Applications::readStart() {
    XProperty active(x_, x_.root(), "_NET_ACTIVE_WINDOW");
    XProperty clients(x_, x_.root(), "_NET_CLIENT_LIST");
    const auto manager = XProperty(x_, x_.root(), "_NET_SUPPORTING_WM_CHECK").values();
    // A window manager that died leaves its properties behind, but not the window they point to.
    const bool hasManager =
        !manager.empty() && !XProperty(x_, manager.front(), "_NET_SUPPORTING_WM_CHECK").values().empty();
    if (!hasManager) {
        logLine("no window manager tells which window is active (EWMH); waiting for one");
        return;
    }
    adopt(clients.values());
    const auto windows = active.values();
    if (!windows.empty() && inFront_.isManaged(windows.front()) && inFront_.announced(windows.front()))
        workspace_.movedToFront(inFront_.window());
}

void X11Applications::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        handleFocus(reinterpret_cast<const xcb_focus_in_event_t&>(event));
        break;
    case XCB_MAP_NOTIFY:
        shown(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY:
        closed(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window, true);
        break;
    default:
        break;
    }
}

void X11Applications::handleProperty(const xcb_property_notify_event_t& change) {
    if (change.window == x_.root()) {
        if (change.atom == x_.atom("_NET_ACTIVE_WINDOW")) readActiveWindow();
        // The list is empty while a window manager restarts: only its additions mean something.
        if (change.atom == x_.atom("_NET_CLIENT_LIST"))
            adopt(XProperty(x_, x_.root(), "_NET_CLIENT_LIST").values());
    } else if (inFront_.isManaged(change.window)) {
        if (change.atom == x_.atom("WM_STATE")) readWithdrawal(change.window);
        if (change.atom == x_.atom("_NET_WM_STATE")) readState(change.window);
        if (owners_.isIdentifying(change.atom)) identifyAgain(change.window);
    } else if (change.atom == x_.atom("WM_STATE")) {
        shown(change.window);
    }
}

// A grab borrows the keyboard and gives it back; a focus that only follows the pointer is none; and one that
// moves into the window is still there.
void X11Applications::handleFocus(const xcb_focus_in_event_t& change) {
    const bool isGrab = change.mode == XCB_NOTIFY_MODE_GRAB || change.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (isGrab || change.detail >= XCB_NOTIFY_DETAIL_POINTER) return;
    if ((change.response_type & 0x7f) == XCB_FOCUS_IN) {
        inFront_.focused(change.event);
        // Told even if it is no news: a launcher that was hidden and shown again was in front all the time.
        if (inFront_.window() == change.event) workspace_.movedToFront(inFront_.window());
    } else if (change.detail != XCB_NOTIFY_DETAIL_INFERIOR && inFront_.unfocused(change.event)) {
        workspace_.movedToFront(inFront_.window());
    }
}

// The property may hold a second value (xfwm4), or a window that is gone by now.
void X11Applications::readActiveWindow() {
    const auto windows = XProperty(x_, x_.root(), "_NET_ACTIVE_WINDOW").values();
    if (windows.empty()) return;
    const auto window = windows.front();
    adopt({&window, 1});
    if (inFront_.isManaged(window) && inFront_.announced(window)) workspace_.movedToFront(inFront_.window());
}

void X11Applications::adopt(std::span<const xcb_window_t> windows) {
    owners_.learn(windows);
    struct Question {
        xcb_window_t window;
        xcb_get_window_attributes_cookie_t attributes;
        XProperty managerState, state;
    };
    std::vector<Question> questions;
    for (const auto window : windows) {
        if (inFront_.isManaged(window) || !owners_.ownerOf(window)) continue;
        questions.push_back({window, xcb_get_window_attributes(x_.xcb(), window),
                             XProperty(x_, window, "WM_STATE"), XProperty(x_, window, "_NET_WM_STATE")});
    }
    for (auto& [window, attributes, managerState, state] : questions) {
        // What a window manager says may be old, and the number another window's by now: a menu's, or one's
        // that is never shown.
        const XcbReply<xcb_get_window_attributes_reply_t> answer(
            xcb_get_window_attributes_reply(x_.xcb(), attributes, nullptr));
        const auto* owner = owners_.ownerOf(window);
        if (!owner || !answer || answer->override_redirect) continue;
        if (answer->map_state == XCB_MAP_STATE_UNMAPPED && managerState.values().empty()) {
            unshown_.insert(window);
            continue;
        }
        workspace_.opened(window, *owner, isHidden(state.values()));
        if (inFront_.listed(window)) workspace_.movedToFront(inFront_.window());
    }
}

void X11Applications::shown(xcb_window_t window) {
    if (unshown_.erase(window) > 0) adopt({&window, 1});
}

void X11Applications::readState(xcb_window_t window) {
    workspace_.setHidden(window, isHidden(XProperty(x_, window, "_NET_WM_STATE").values()));
}

// Some programs close their windows without destroying them, and show them again later.
void X11Applications::readWithdrawal(xcb_window_t window) {
    constexpr std::uint32_t withdrawnState = 0;
    const auto states = XProperty(x_, window, "WM_STATE").values();
    if (states.empty() || states.front() == withdrawnState) closed(window, false);
}

// Some programs give their window its class only after it was shown.
void X11Applications::identifyAgain(xcb_window_t window) {
    if (!workspace_.applicationOf(window)) return;
    if (const auto* owner = owners_.ownerOf(window)) {
        workspace_.identifiedAnew(window, *owner, isHidden(XProperty(x_, window, "_NET_WM_STATE").values()));
    }
}

void X11Applications::closed(xcb_window_t window, bool isDestroyed) {
    unshown_.erase(window);
    const bool isAnotherInFront = inFront_.closed(window);
    workspace_.closed(window, isDestroyed,
                      isAnotherInFront ? std::optional<WindowId>(inFront_.window()) : std::nullopt);
}

bool X11Applications::isHidden(const std::vector<std::uint32_t>& states) const {
    return std::ranges::find(states, x_.atom("_NET_WM_STATE_HIDDEN")) != states.end();
}

} // namespace quorvane
