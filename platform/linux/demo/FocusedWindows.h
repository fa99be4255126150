#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace quorvane {

/// Other programs' windows, the keys and the keyboard's layout, as any program on the display can see them.
/// Knows nothing of the agent: what it tells is what the X server says.
class FocusedWindows {
public:
    using Clock = std::chrono::steady_clock;

    /// Null connection (`isConnected` false) when there is no X server.
    FocusedWindows();
    ~FocusedWindows();
    FocusedWindows(const FocusedWindows&) = delete;
    FocusedWindows& operator=(const FocusedWindows&) = delete;

    bool isConnected() const { return xcb_connection_has_error(xcb_) == 0; }

    /// The first managed window of that class (either part of WM_CLASS), waited for some seconds.
    std::optional<xcb_window_t> windowOfClass(const std::string& name);

    struct Times {
        std::optional<Clock::time_point> began;    ///< The window got the focus, or the keys were pressed.
        std::optional<Clock::time_point> switched; ///< The layout changed, the last time.
    };

    /// Asks the window manager to bring the window to the front, and watches what happens until both times
    /// are known, or the deadline has passed.
    Times activateAndWatch(xcb_window_t window, Clock::time_point deadline);

    /// The same for keys, given by their numbers on the hardware; all of them are held at once.
    Times pressAndWatch(const std::vector<std::uint8_t>& keycodes, Clock::time_point deadline);

    /// The id of the layout that typing uses now: `xkb:ru`.
    std::string currentLayout();

private:
    std::vector<xcb_window_t> managedWindows();
    std::string classOf(xcb_window_t window);
    xcb_atom_t atom(const std::string& name);
    void activate(xcb_window_t window);
    Times watch(Times times, xcb_window_t window, Clock::time_point deadline);

    xcb_connection_t* xcb_;
    xcb_window_t root_ = XCB_NONE;
    std::uint8_t xkbEvent_ = 0;
};

} // namespace quorvane
