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
    virtual ~XClient() = default;

    // Keys and buttons, by the numbers of the hardware: they go through no layout.
    void press(std::uint8_t keycode) { fake(XCB_KEY_PRESS, keycode); }
    void release(std::uint8_t keycode) { fake(XCB_KEY_RELEASE, keycode); }
    void pressTogether(const std::vector<std::uint8_t>& keycodes); ///< All held at once, then released.
    void moveTo(int x, int y);
    void pressButton(std::uint8_t button) { fake(XCB_BUTTON_PRESS, button); }
    void releaseButton(std::uint8_t button) { fake(XCB_BUTTON_RELEASE, button); }
    void click(std::uint8_t button);

    // What a task bar asks the window manager for.
    void activate(xcb_window_t window);
    void minimise(xcb_window_t window);
    void fillScreen(xcb_window_t window); ///< Without frame, above panels.
    void setState(xcb_window_t window, std::string_view state, bool isOn);
    void showDesktop(unsigned number); ///< Counted from 0.

    std::vector<std::uint32_t> values(xcb_window_t window, std::string_view property);
    std::vector<std::string> texts(xcb_window_t window, std::string_view property);
    void setValues(xcb_window_t window, std::string_view property, std::vector<std::uint32_t> values);
    void setText(xcb_window_t window, std::string_view property, std::string_view type,
                 std::string_view text);

    // Windows of this client. A pop-up is no business of the window manager's.
    xcb_window_t create(const xcb_rectangle_t& place, bool isPopUp = false);
    void map(xcb_window_t window);
    void unmap(xcb_window_t window);
    void destroy(xcb_window_t window);
    xcb_window_t show(); ///< A little one.

    std::uint32_t pixelAt(int x, int y); ///< What is to be seen on the screen there.
    xcb_window_t focused();              ///< The window that keys go to.
    unsigned currentGroup();             ///< The keyboard layout that typing uses, as the server tells it.

    xcb_window_t root() const { return x_->root(); }

protected:
    xcb_connection_t* xcb() const { return x_->xcb(); }

private:
    /// Takes the requests made so far to the server.
    virtual void deliver();

    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    void tellManager(xcb_window_t window, std::string_view message, std::uint32_t first,
                     std::uint32_t second = 0);

    std::unique_ptr<XConnection> x_;
};

} // namespace quorvane
