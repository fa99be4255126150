#pragma once

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

} // namespace quorvane
