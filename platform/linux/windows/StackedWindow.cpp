#include "platform/linux/windows/StackedWindow.h"

#include <algorithm>
#include <map>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

/// The server's stacking order, bottom first.
std::vector<xcb_window_t> childrenOf(XConnection& x, xcb_query_tree_cookie_t cookie) {
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x.xcb(), cookie, nullptr));
    if (!tree) return {};
    const auto* first = xcb_query_tree_children(tree.get());
    return {first, first + tree->children_len};
}

/// The child of the root in which each of the windows is. One round trip for each level of nesting.
std::map<xcb_window_t, xcb_window_t> clientsByTop(XConnection& x, const std::vector<xcb_window_t>& clients) {
    std::map<xcb_window_t, xcb_window_t> clientOf;
    std::vector<std::pair<xcb_window_t, xcb_window_t>> open; // The client, and how far up we are.
    open.reserve(clients.size());
    for (const auto client : clients)
        open.emplace_back(client, client);
    constexpr int deepestFrame = 3; // Window managers put two windows around a client at most.
    for (int level = 0; level < deepestFrame && !open.empty(); ++level) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        cookies.reserve(open.size());
        for (const auto& each : open)
            cookies.push_back(xcb_query_tree(x.xcb(), each.second));
        decltype(open) next;
        for (std::size_t i = 0; i < open.size(); ++i) {
            const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x.xcb(), cookies[i], nullptr));
            if (!tree) continue;
            if (tree->parent == x.root())
                clientOf[open[i].second] = open[i].first;
            else
                next.emplace_back(open[i].first, tree->parent);
        }
        open = std::move(next);
    }
    return clientOf;
}

/// Requests under way for one window.
struct Question {
    Question(XConnection& x, xcb_window_t window)
        : attributes(xcb_get_window_attributes(x.xcb(), window))
        , size(xcb_get_geometry(x.xcb(), window))
        , origin(xcb_translate_coordinates(x.xcb(), window, x.root(), 0, 0)) {}

    StackedWindow answer(XConnection& x, xcb_window_t window) const {
        const XcbReply<xcb_get_window_attributes_reply_t> shown(
            xcb_get_window_attributes_reply(x.xcb(), attributes, nullptr));
        const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(x.xcb(), size, nullptr));
        const XcbReply<xcb_translate_coordinates_reply_t> inside(
            xcb_translate_coordinates_reply(x.xcb(), origin, nullptr));
        if (!shown || !geometry || !inside) return {}; // It has vanished.
        StackedWindow found{.window = window};
        const double border = geometry->border_width;
        found.bounds = {inside->dst_x - border, inside->dst_y - border, geometry->width + 2 * border,
                        geometry->height + 2 * border};
        found.isPopUp = shown->override_redirect != 0;
        found.isVisible =
            shown->map_state == XCB_MAP_STATE_VIEWABLE && shown->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
        return found;
    }

    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_geometry_cookie_t size;
    xcb_translate_coordinates_cookie_t origin;
};

/// Window managers keep little helper windows just outside of the screen.
bool reachesInto(const Rect& bounds, const xcb_screen_t& screen) {
    return bounds.x < screen.width_in_pixels && bounds.y < screen.height_in_pixels &&
           bounds.x + bounds.width > 0 && bounds.y + bounds.height > 0;
}

} // namespace

std::vector<StackedWindow> stackedWindows(XConnection& x) {
    const auto treeCookie = xcb_query_tree(x.xcb(), x.root());
    // Not _NET_CLIENT_LIST_STACKING, which xfwm4 does not always have: the order comes from the tree anyway.
    const auto clients = XProperty(x, x.root(), "_NET_CLIENT_LIST").values();
    const auto tops = childrenOf(x, treeCookie);
    const auto clientOf = clientsByTop(x, clients);

    std::vector<std::pair<xcb_window_t, bool>> candidates; // The window, and whether it is managed.
    for (auto top = tops.rbegin(); top != tops.rend(); ++top) {
        const auto client = clientOf.find(*top);
        candidates.emplace_back(client == clientOf.end() ? *top : client->second, client != clientOf.end());
    }
    std::vector<Question> questions;
    questions.reserve(candidates.size());
    for (const auto& candidate : candidates)
        questions.emplace_back(x, candidate.first);

    std::vector<StackedWindow> stack;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        auto window = questions[i].answer(x, candidates[i].first);
        if (window.window == XCB_WINDOW_NONE) continue;
        const bool isManaged = candidates[i].second;
        const bool isShown = window.isVisible && reachesInto(window.bounds, x.screen());
        if (isManaged || isShown) stack.push_back(window);
    }
    std::stable_partition(stack.begin(), stack.end(), [](const auto& each) { return each.isVisible; });
    return stack;
}

StackedWindow stackedWindow(XConnection& x, xcb_window_t window) {
    return Question(x, window).answer(x, window);
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
