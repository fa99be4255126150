#include "platform/linux/x11/windows/X11Screens.h"

#include <algorithm>

#include <xcb/randr.h>

#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/applications/XWindow.h"

namespace quorvane {

namespace {

bool contains(const Rect& rect, Point point) {
    return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y &&
           point.y < rect.y + rect.height;
}

double commonArea(const Rect& a, const Rect& b) {
    const double width = std::min(a.x + a.width, b.x + b.width) - std::max(a.x, b.x);
    const double height = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
    return std::max(width, 0.0) * std::max(height, 0.0);
}

} // namespace

X11Screens::X11Screens(XConnection& x, const SessionWorkspace& workspace, double scale)
    : x_(x)
    , workspace_(workspace)
    , scale_(scale)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    const auto* randr = xcb_get_extension_data(x.xcb(), &xcb_randr_id);
    hasRandr_ = randr && randr->present;
    firstRandrEvent_ = hasRandr_ ? randr->first_event : 0;
    // Monitors that the user defines (xrandr --setmonitor) only make the server send the root's
    // ConfigureNotify.
    x_.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    if (!hasRandr_) return;
    xcb_discard_reply(x_.xcb(), xcb_randr_query_version(x_.xcb(), 1, 5).sequence);
    xcb_randr_select_input(x_.xcb(), x_.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                               XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
}

std::optional<Screen> X11Screens::mainScreen() const {
    const auto& all = monitors();
    const auto window = all.size() > 1 ? activeWindowFrame() : std::nullopt;
    if (!window) return screenOf(all.front());
    const Point centre{window->x + window->width / 2, window->y + window->height / 2};
    const auto centred =
        std::ranges::find_if(all, [&](const auto& each) { return contains(each.frame, centre); });
    if (centred != all.end()) return screenOf(*centred);
    const auto common = [&](const Monitor& each) { return commonArea(each.frame, *window); };
    return screenOf(*std::ranges::max_element(all, {}, common));
}

std::optional<Screen> X11Screens::deepestScreen() const {
    return screenOf(monitors().front());
}

void X11Screens::handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    const bool isRandr = hasRandr_ && (type == firstRandrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                       type == firstRandrEvent_ + XCB_RANDR_NOTIFY);
    const bool isRoot = type == XCB_CONFIGURE_NOTIFY &&
                        reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == x_.root();
    if (isRandr || isRoot) monitors_.clear();
}

const std::vector<X11Screens::Monitor>& X11Screens::monitors() const {
    if (monitors_.empty()) monitors_ = readMonitors();
    return monitors_;
}

std::vector<X11Screens::Monitor> X11Screens::readMonitors() const {
    std::vector<Monitor> found;
    const auto sizeCookie = xcb_get_geometry(x_.xcb(), x_.root());
    if (hasRandr_) {
        constexpr std::uint8_t activeOnly = 1;
        const XcbReply<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
            x_.xcb(), xcb_randr_get_monitors(x_.xcb(), x_.root(), activeOnly), nullptr));
        for (auto it = reply ? xcb_randr_get_monitors_monitors_iterator(reply.get())
                             : xcb_randr_monitor_info_iterator_t{};
             it.rem; xcb_randr_monitor_info_next(&it)) {
            const auto& info = *it.data;
            const Rect frame{double(info.x), double(info.y), double(info.width), double(info.height)};
            found.push_back({static_cast<std::int32_t>(info.name), frame, info.primary != 0});
        }
    }
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(x_.xcb(), sizeCookie, nullptr));
    if (found.empty() && size) {
        const Rect whole{0, 0, double(size->width), double(size->height)};
        found.push_back({XCB_ATOM_PRIMARY, whole, true});
    }
    if (found.empty()) found.push_back({XCB_ATOM_PRIMARY, {}, true}); // The server has gone.
    std::stable_partition(found.begin(), found.end(), [](const auto& each) { return each.isPrimary; });
    return found;
}

std::optional<Rect> X11Screens::activeWindowFrame() const {
    const auto window = xWindow(workspace_.activeWindow());
    if (window == XCB_WINDOW_NONE) return std::nullopt;
    const auto sizeCookie = xcb_get_geometry(x_.xcb(), window);
    const auto originCookie = xcb_translate_coordinates(x_.xcb(), window, x_.root(), 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(x_.xcb(), sizeCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(x_.xcb(), originCookie, nullptr));
    if (!size || !origin) return std::nullopt;
    return Rect{double(origin->dst_x), double(origin->dst_y), double(size->width), double(size->height)};
}

Screen X11Screens::screenOf(const Monitor& monitor) const {
    return {monitor.number, points().fromBottomLeft(monitor.frame), x_.screen().root_depth};
}

} // namespace quorvane
