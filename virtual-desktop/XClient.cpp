#include "virtual-desktop/XClient.h"

#include <cstring>
#include <stdexcept>

#include <xcb/xtest.h>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XcbXkb.h"
#include "platform/linux/x11/windows/WindowManagerRequests.h"

namespace quorvane {

XClient::XClient() : x_(XConnection::open()) {
    if (!x_) throw std::runtime_error("no X server");
    const XcbReply<xcb_xkb_use_extension_reply_t> use(
        xcb_xkb_use_extension_reply(xcb(), xcb_xkb_use_extension(xcb(), 1, 0), nullptr));
}

void XClient::pressTogether(const std::vector<std::uint8_t>& keycodes) {
    for (const auto type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        for (const auto keycode : keycodes)
            fake(std::uint8_t(type), keycode);
    }
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
    setState(window, "_NET_WM_STATE_FULLSCREEN", true);
}

void XClient::setState(xcb_window_t window, std::string_view state, bool isOn) {
    tellManager(window, "_NET_WM_STATE", isOn ? 1 : 0, x_->atom(state));
}

void XClient::showDesktop(unsigned number) {
    tellManager(root(), "_NET_CURRENT_DESKTOP", number);
}

std::vector<std::uint32_t> XClient::values(xcb_window_t window, std::string_view property) {
    return XProperty(*x_, window, property).values();
}

std::vector<std::string> XClient::texts(xcb_window_t window, std::string_view property) {
    return XProperty(*x_, window, property).texts();
}

void XClient::setValues(xcb_window_t window, std::string_view property, std::vector<std::uint32_t> values) {
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, window, x_->atom(property), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    deliver();
}

void XClient::setText(xcb_window_t window, std::string_view property, std::string_view type,
                      std::string_view text) {
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, window, x_->atom(property), x_->atom(type), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
    deliver();
}

xcb_window_t XClient::create(const xcb_rectangle_t& place, bool isPopUp) {
    const auto window = xcb_generate_id(xcb());
    const std::uint32_t overrideRedirect = isPopUp;
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, window, root(), place.x, place.y, place.width,
                      place.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
    return window;
}

void XClient::map(xcb_window_t window) {
    xcb_map_window(xcb(), window);
    deliver();
}

void XClient::unmap(xcb_window_t window) {
    xcb_unmap_window(xcb(), window);
    deliver();
}

xcb_window_t XClient::show() {
    const auto window = create({0, 0, 20, 20});
    map(window);
    return window;
}

void XClient::destroy(xcb_window_t window) {
    xcb_destroy_window(xcb(), window);
    deliver();
}

unsigned XClient::currentGroup() {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(xcb(), xcb_xkb_get_state(xcb(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->group : 0;
}

void XClient::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(xcb(), type, detail, XCB_CURRENT_TIME, root(), static_cast<std::int16_t>(x),
                        static_cast<std::int16_t>(y), 0);
    deliver();
}

void XClient::tellManager(xcb_window_t window, std::string_view message, std::uint32_t first,
                          std::uint32_t second) {
    askWindowManager(*x_, window, message, first, second);
    deliver();
}

std::uint32_t XClient::pixelAt(int x, int y) {
    const XcbReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        xcb(),
        xcb_get_image(xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, root(), static_cast<std::int16_t>(x),
                      static_cast<std::int16_t>(y), 1, 1, ~0U),
        nullptr));
    std::uint32_t pixel = 0;
    if (image && xcb_get_image_data_length(image.get()) >= int(sizeof pixel))
        std::memcpy(&pixel, xcb_get_image_data(image.get()), sizeof pixel);
    return pixel;
}

xcb_window_t XClient::focused() {
    const XcbReply<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(xcb(), xcb_get_input_focus(xcb()), nullptr));
    return answer ? answer->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void XClient::deliver() {
    focused(); // The answer comes after what was asked before.
}

} // namespace quorvane
