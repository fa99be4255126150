#include "platform/linux/windows/X11Cursor.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <xcb/xfixes.h>

#include "platform/linux/x11/XFixes.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

constexpr Point nativeTextHotSpot{4, 9};
constexpr std::array<std::string_view, 3> textCursors = {"text", "xterm", "ibeam"};

} // namespace

std::optional<Point> X11Cursor::hotSpot() const {
    if (!useXFixes(x_)) return std::nullopt;
    const XcbReply<xcb_xfixes_get_cursor_image_and_name_reply_t> cursor(
        xcb_xfixes_get_cursor_image_and_name_reply(x_.xcb(), xcb_xfixes_get_cursor_image_and_name(x_.xcb()),
                                                   nullptr));
    if (!cursor) return std::nullopt;
    const std::string_view name(xcb_xfixes_get_cursor_image_and_name_name(cursor.get()), cursor->nbytes);
    if (std::ranges::find(textCursors, name) != textCursors.end()) return nativeTextHotSpot;
    return Point{cursor->xhot / scale_, cursor->yhot / scale_};
}

} // namespace quorvane
