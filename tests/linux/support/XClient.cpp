#include "linux/support/XClient.h"

#include <stdexcept>

#include <xcb/xtest.h>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

XClient::XClient() : x_(XConnection::open()) {
    if (!x_) throw std::runtime_error("no X server");
}

void XClient::moveTo(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void XClient::click(std::uint8_t button) {
    pressButton(button);
    releaseButton(button);
}

void XClient::activate(xcb_window_t window) {
    constexpr std::uint32_t fromTaskBar = 2;
    tellManager(window, "_NET_ACTIVE_WINDOW", fromTaskBar);
}

void XClient::minimise(xcb_window_t window) {
    constexpr std::uint32_t iconicState = 3;
    tellManager(window, "WM_CHANGE_STATE", iconicState);
}

void XClient::fillScreen(xcb_window_t window) {
    constexpr std::uint32_t add = 1;
    tellManager(window, "_NET_WM_STATE", add, x_->atom("_NET_WM_STATE_FULLSCREEN"));
}

std::vector<std::uint32_t> XClient::values(xcb_window_t window, std::string_view property) {
    return XProperty(*x_, window, property).values();
}

void XClient::setValues(xcb_window_t window, std::string_view property, std::vector<std::uint32_t> values) {
    xcb_change_property(x_->xcb(), XCB_PROP_MODE_REPLACE, window, x_->atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    sync();
}

void XClient::setText(xcb_window_t window, std::string_view property, std::string_view type,
                      std::string_view text) {
    xcb_change_property(x_->xcb(), XCB_PROP_MODE_REPLACE, window, x_->atom(property), x_->atom(type), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
    sync();
}

xcb_window_t XClient::show() {
    const auto window = xcb_generate_id(x_->xcb());
    xcb_create_window(x_->xcb(), XCB_COPY_FROM_PARENT, window, root(), 0, 0, 20, 20, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(x_->xcb(), window);
    sync();
    return window;
}

void XClient::destroy(xcb_window_t window) {
    xcb_destroy_window(x_->xcb(), window);
    sync();
}

void XClient::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(x_->xcb(), type, detail, XCB_CURRENT_TIME, root(), static_cast<std::int16_t>(x),
                        static_cast<std::int16_t>(y), 0);
    sync();
}

void XClient::tellManager(xcb_window_t window, std::string_view message, std::uint32_t first,
                          std::uint32_t second) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x_->atom(message);
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    xcb_send_event(x_->xcb(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    sync();
}

void XClient::sync() {
    XcbReply<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(x_->xcb(), xcb_get_input_focus(x_->xcb()), nullptr));
}

} // namespace quorvane
