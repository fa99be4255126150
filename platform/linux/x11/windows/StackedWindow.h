#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Geometry.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// A window that a user would call one.
struct StackedWindow {
    xcb_window_t window = XCB_WINDOW_NONE; ///< The program's own, not the window manager's frame around it.
    Rect bounds;                           ///< Without frame; origin at the top-left of the X screen.
    bool isPopUp = false;                  ///< A menu or the like, which passes the window manager by.
    bool isVisible = false;
    bool isManaged = false; ///< A window manager has it in its list.
};

/// Requests under way for one window: many windows cost one round trip.
class StackedWindowQuestion {
public:
    StackedWindowQuestion(XConnection& x, xcb_window_t window);

    /// None (0) when it has vanished. Whether it is managed is not asked for.
    StackedWindow answer() const;

    /// What the server has told of the window before this is part of the answer.
    std::uint32_t sequence() const { return attributes_.sequence; }

private:
    XConnection& x_;
    xcb_window_t window_;
    xcb_get_window_attributes_cookie_t attributes_;
    xcb_get_geometry_cookie_t size_;
    xcb_translate_coordinates_cookie_t origin_;
};

/// One window; none (0) when it has vanished. One round trip.
inline StackedWindow stackedWindow(XConnection& x, xcb_window_t window) {
    return StackedWindowQuestion(x, window).answer();
}

/// The bounds without the shadow that some programs draw around their windows themselves: the left, right,
/// top and bottom edges of `_GTK_FRAME_EXTENTS`, or nothing.
Rect withoutShadow(const Rect& bounds, const std::vector<std::uint32_t>& edges);

} // namespace quorvane
