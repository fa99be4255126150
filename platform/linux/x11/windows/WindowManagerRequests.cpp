#include "platform/linux/x11/windows/WindowManagerRequests.h"

#include "platform/linux/x11/XProperties.h"

namespace quorvane {
namespace {

constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

} // namespace

void askWindowManager(XConnection& x, xcb_window_t window, std::string_view message, std::uint32_t first,
                      std::uint32_t second) {
    askWindowManager(x.xcb(), x, window, message, first, second);
}

void askWindowManager(xcb_connection_t* sender, XConnection& x, xcb_window_t window, std::string_view message,
                      std::uint32_t first, std::uint32_t second) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x.atom(message);
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    xcb_send_event(sender, 0, x.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

std::optional<std::uint32_t> shownDesktop(XConnection& x) {
    const auto current = XProperty(x, x.root(), "_NET_CURRENT_DESKTOP").values();
    return current.empty() ? std::nullopt : std::optional(current.front());
}

bool isOnAllDesktops(XConnection& x, xcb_window_t window) {
    const auto desktops = XProperty(x, window, "_NET_WM_DESKTOP").values();
    return !desktops.empty() && desktops.front() == everyDesktop;
}

void keepAboveOthers(XConnection& x, xcb_window_t window, bool above) {
    askWindowManager(x, window, "_NET_WM_STATE", above ? addState : removeState,
                     x.atom("_NET_WM_STATE_ABOVE"));
}

void showOnAllDesktops(XConnection& x, xcb_window_t window, bool all) {
    const auto wanted = all ? std::optional(everyDesktop) : shownDesktop(x);
    if (wanted) askWindowManager(x, window, "_NET_WM_DESKTOP", *wanted);
}

} // namespace quorvane
