#include "platform/linux/x11/windows/StackedWindow.h"

#include <algorithm>

#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

StackedWindowQuestion::StackedWindowQuestion(XConnection& x, xcb_window_t window)
    : x_(x)
    , window_(window)
    , attributes_(xcb_get_window_attributes(x.xcb(), window))
    , size_(xcb_get_geometry(x.xcb(), window))
    , origin_(xcb_translate_coordinates(x.xcb(), window, x.root(), 0, 0)) {}

StackedWindow StackedWindowQuestion::answer() const {
    const XcbReply<xcb_get_window_attributes_reply_t> shown(
        xcb_get_window_attributes_reply(x_.xcb(), attributes_, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(x_.xcb(), size_, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> inside(
        xcb_translate_coordinates_reply(x_.xcb(), origin_, nullptr));
    if (!shown || !geometry || !inside) return {};
    StackedWindow found{.window = window_};
    const double border = geometry->border_width;
    found.bounds = {inside->dst_x - border, inside->dst_y - border, geometry->width + 2 * border,
                    geometry->height + 2 * border};
    found.isPopUp = shown->override_redirect != 0;
    found.isVisible =
        shown->map_state == XCB_MAP_STATE_VIEWABLE && shown->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
    return found;
}

Rect withoutShadow(const Rect& bounds, const std::vector<std::uint32_t>& edges) {
    if (edges.size() < 4) return bounds;
    const double left = edges[0];
    const double right = edges[1];
    const double top = edges[2];
    const double bottom = edges[3];
    return {bounds.x + left, bounds.y + top, std::max(bounds.width - left - right, 0.0),
            std::max(bounds.height - top - bottom, 0.0)};
}

} // namespace quorvane
