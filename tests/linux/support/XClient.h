#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Another program on the current display, for what the user, the window manager or the windows' programs do.
/// Every call has reached the server when it returns.
class XClient {
public:
    XClient();

    // Keys and buttons, by the numbers of the hardware: they go through no layout.
    void press(std::uint8_t keycode) { fake(XCB_KEY_PRESS, keycode); }
    void release(std::uint8_t keycode) { fake(XCB_KEY_RELEASE, keycode); }
    void moveTo(int x, int y);
    void pressButton(std::uint8_t button) { fake(XCB_BUTTON_PRESS, button); }
    void releaseButton(std::uint8_t button) { fake(XCB_BUTTON_RELEASE, button); }
    void click(std::uint8_t button);

    // What a task bar asks the window manager for.
    void activate(xcb_window_t window);
    void minimise(xcb_window_t window);
    void fillScreen(xcb_window_t window); ///< Without frame, above panels.

    std::vector<std::uint32_t> values(xcb_window_t window, std::string_view property);
    void setValues(xcb_window_t window, std::string_view property, std::vector<std::uint32_t> values);
    void setText(xcb_window_t window, std::string_view property, std::string_view type,
                 std::string_view text);
    xcb_window_t show(); ///< A little window of this client.
    void destroy(xcb_window_t window);

    xcb_window_t root() const { return x_->root(); }

private:
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    void tellManager(xcb_window_t window, std::string_view message, std::uint32_t first,
                     std::uint32_t second = 0);
    void sync();

    std::unique_ptr<XConnection> x_;
};

} // namespace quorvane
