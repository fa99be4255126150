#pragma once

#include <cstdint>
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
};

/// Front to back, the invisible ones at the end. Of those that no window manager manages only the visible
/// ones.
std::vector<StackedWindow> stackedWindows(XConnection& x);

/// One window; none (0) when it has vanished. One round trip.
StackedWindow stackedWindow(XConnection& x, xcb_window_t window);

/// The bounds without the shadow that some programs draw around their windows themselves: the left, right,
/// top and bottom edges of `_GTK_FRAME_EXTENTS`, or nothing.
Rect withoutShadow(const Rect& bounds, const std::vector<std::uint32_t>& edges);

} // namespace quorvane
