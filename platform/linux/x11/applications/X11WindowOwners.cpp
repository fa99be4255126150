#include "platform/linux/x11/applications/X11WindowOwners.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/applications/X11WindowFacts.h"

namespace quorvane {
namespace {

constexpr std::uint32_t windowEvents =
    XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
constexpr std::array identifyingProperties = {"WM_CLASS", "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"};

} // namespace

X11WindowOwners::X11WindowOwners(XConnection& x, WindowOwners& owners)
    : x_(x)
    , owners_(owners)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"WM_CLASS", "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE", "_NET_WM_PID",
                    "COMPOUND_TEXT", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK",
                    "_NET_WM_WINDOW_TYPE_DESKTOP"});
}

void X11WindowOwners::learn(std::span<const xcb_window_t> windows) {
    std::vector<xcb_window_t> unknown;
    std::ranges::copy_if(windows, std::back_inserter(unknown), [this](auto window) {
        return window != XCB_WINDOW_NONE && !owners_.ownerOf(window);
    });
    // First ask for changes, then for the present state: nothing can happen unseen in between.
    std::vector<xcb_void_cookie_t> selections;
    selections.reserve(unknown.size());
    for (const auto window : unknown) {
        selections.push_back(
            xcb_change_window_attributes_checked(x_.xcb(), window, XCB_CW_EVENT_MASK, &windowEvents));
    }
    const auto facts = factsOf(x_, unknown);
    for (std::size_t i = 0; i < unknown.size(); ++i) {
        // A window that vanished before the first request, and whose number was another's before the second,
        // would be remembered for ever.
        const XcbReply<xcb_generic_error_t> refusal(xcb_request_check(x_.xcb(), selections[i]));
        if (facts[i] && !refusal) owners_.identify(unknown[i], *facts[i]);
    }
}

const WindowOwner* X11WindowOwners::ownerOf(xcb_window_t window) {
    learn({&window, 1});
    return owners_.ownerOf(window);
}

bool X11WindowOwners::isIdentifying(xcb_atom_t property) const {
    return std::ranges::any_of(identifyingProperties,
                               [&](const char* name) { return x_.atom(name) == property; });
}

void X11WindowOwners::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_DESTROY_NOTIFY:
        // The server gives the number to a new window soon.
        owners_.forget(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (isIdentifying(change.atom)) owners_.forget(change.window);
        break;
    }
    default:
        break;
    }
}

} // namespace quorvane
