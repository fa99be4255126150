#pragma once

#include <xcb/xproto.h>

#include "platform/linux/applications/WindowId.h"

namespace quorvane {

/// The X server's number of a window that a session of it has told.
inline xcb_window_t xWindow(WindowId window) {
    return static_cast<xcb_window_t>(window);
}

} // namespace quorvane
