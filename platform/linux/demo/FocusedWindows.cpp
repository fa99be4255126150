#include "platform/linux/demo/FocusedWindows.h"

#include <poll.h>
#include <thread>

#include <xcb/xtest.h>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/XcbXkb.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr auto longestWaitForWindow = 15s;

} // namespace

FocusedWindows::FocusedWindows() : xcb_(xcb_connect(nullptr, nullptr)) {
    if (!isConnected()) return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(xcb_)).data->root;
    xkbEvent_ = xcb_get_extension_data(xcb_, &xcb_xkb_id)->first_event;
    const XcbReply<xcb_xkb_use_extension_reply_t> use(
        xcb_xkb_use_extension_reply(xcb_, xcb_xkb_use_extension(xcb_, 1, 0), nullptr));
    xcb_xkb_select_events_details_t details{};
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(xcb_, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0,
                              &details);
}

FocusedWindows::~FocusedWindows() {
    xcb_disconnect(xcb_);
}

xcb_atom_t FocusedWindows::atom(const std::string& name) {
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        xcb_, xcb_intern_atom(xcb_, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_NONE};
}

std::vector<xcb_window_t> FocusedWindows::managedWindows() {
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        xcb_, xcb_get_property(xcb_, 0, root_, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 0, 1024), nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* windows = static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
    return {windows, windows + reply->value_len};
}

std::string FocusedWindows::classOf(xcb_window_t window) {
    const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        xcb_, xcb_get_property(xcb_, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256), nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

std::optional<xcb_window_t> FocusedWindows::windowOfClass(const std::string& name) {
    const auto part = name + '\0'; // both parts end with it
    for (const auto deadline = Clock::now() + longestWaitForWindow; Clock::now() < deadline;
         std::this_thread::sleep_for(20ms)) {
        for (const auto window : managedWindows()) {
            const auto wmClass = '\0' + classOf(window);
            if (wmClass.find('\0' + part) == std::string::npos) continue;
            const std::uint32_t events = XCB_EVENT_MASK_FOCUS_CHANGE;
            xcb_change_window_attributes(xcb_, window, XCB_CW_EVENT_MASK, &events);
            return window;
        }
    }
    return std::nullopt;
}

void FocusedWindows::activate(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = 2; // as a pager asks: on behalf of the user
    xcb_send_event(xcb_, false, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(xcb_);
}

FocusedWindows::Times FocusedWindows::activateAndWatch(xcb_window_t window, Clock::time_point deadline) {
    activate(window);
    return watch({}, window, deadline);
}

FocusedWindows::Times FocusedWindows::pressAndWatch(const std::vector<std::uint8_t>& keycodes,
                                                    Clock::time_point deadline) {
    for (const auto type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        for (const auto keycode : keycodes)
            xcb_test_fake_input(xcb_, std::uint8_t(type), keycode, XCB_CURRENT_TIME, root_, 0, 0, 0);
    }
    xcb_flush(xcb_);
    return watch({.began = Clock::now()}, XCB_NONE, deadline);
}

FocusedWindows::Times FocusedWindows::watch(Times times, xcb_window_t window, Clock::time_point deadline) {
    while (!(times.began && times.switched) && Clock::now() < deadline) {
        const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(xcb_)};
        if (!event) {
            pollfd descriptor{xcb_get_file_descriptor(xcb_), POLLIN, 0};
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
            poll(&descriptor, 1, static_cast<int>(left.count()));
            continue;
        }
        const auto type = event->response_type & 0x7f;
        if (type == XCB_FOCUS_IN) {
            const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(*event);
            if (focus.event == window && focus.mode == XCB_NOTIFY_MODE_NORMAL) times.began = Clock::now();
        } else if (type == xkbEvent_) {
            times.switched = Clock::now();
        }
    }
    return times;
}

std::string FocusedWindows::currentLayout() {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(xcb_, xcb_xkb_get_state(xcb_, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    const XcbReply<xcb_get_property_reply_t> rules(xcb_get_property_reply(
        xcb_, xcb_get_property(xcb_, 0, root_, atom("_XKB_RULES_NAMES"), XCB_ATOM_STRING, 0, 256), nullptr));
    if (!state || !rules) return {};
    // Five texts, each ended by a NUL: rules, model, layouts, variants, options.
    std::string text(static_cast<const char*>(xcb_get_property_value(rules.get())), rules->value_len);
    for (int skipped = 0; skipped < 2; ++skipped)
        text.erase(0, text.find('\0') + 1);
    text.erase(std::min(text.find('\0'), text.size()));
    for (int group = 0; group < state->group && text.find(',') != std::string::npos; ++group)
        text.erase(0, text.find(',') + 1);
    return "xkb:" + text.substr(0, text.find(','));
}

} // namespace quorvane
