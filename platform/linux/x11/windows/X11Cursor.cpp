#include "platform/linux/x11/windows/X11Cursor.h"

#include <xcb/xfixes.h>

#include "platform/linux/x11/XFixes.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

std::optional<Point> X11Cursor::hotSpot() const {
    if (!useXFixes(x_)) return std::nullopt;
    const XcbReply<xcb_xfixes_get_cursor_image_reply_t> cursor(
        xcb_xfixes_get_cursor_image_reply(x_.xcb(), xcb_xfixes_get_cursor_image(x_.xcb()), nullptr));
    if (!cursor) return std::nullopt;
    return Point{cursor->xhot / scale_, cursor->yhot / scale_};
}

} // namespace quorvane
