#include "platform/linux/x11/windows/WindowStack.h"

#include <algorithm>
#include <utility>

#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

/// Window managers keep little helper windows just outside of the screen.
bool reachesInto(const Rect& bounds, const xcb_screen_t& screen) {
    return bounds.x < screen.width_in_pixels && bounds.y < screen.height_in_pixels &&
           bounds.x + bounds.width > 0 && bounds.y + bounds.height > 0;
}

bool isBefore(std::uint32_t sequence, std::uint32_t other) {
    return static_cast<std::int32_t>(sequence - other) < 0;
}

} // namespace

WindowStack::WindowStack(XConnection& x, std::function<void(Windows)> watch)
    : x_(x)
    , watch_(std::move(watch))
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"_NET_CLIENT_LIST"});
}

std::vector<StackedWindow> WindowStack::windows() {
    if (!std::exchange(isStarted_, true)) start();
    if (std::exchange(areClientsStale_, false)) readClients();
    ask();
    std::vector<StackedWindow> stack;
    for (auto top = order_.rbegin(); top != order_.rend(); ++top) {
        const auto& shown = tops_.at(*top).shown;
        if (shown.isManaged || (shown.isVisible && reachesInto(shown.bounds, x_.screen())))
            stack.push_back(shown);
    }
    std::stable_partition(stack.begin(), stack.end(), [](const auto& each) { return each.isVisible; });
    return stack;
}

// Asking --------------------------------------------------------------------------------------------------

void WindowStack::start() {
    // First ask for changes, then for the present state: nothing can happen unseen in between.
    x_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    const auto cookie = xcb_query_tree(x_.xcb(), x_.root());
    startedAt_ = cookie.sequence;
    const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x_.xcb(), cookie, nullptr));
    if (!tree) return;
    const auto* first = xcb_query_tree_children(tree.get());
    for (const auto* top = first; top != first + tree->children_len; ++top)
        addInFront(*top);
}

void WindowStack::readClients() {
    // Not _NET_CLIENT_LIST_STACKING, which xfwm4 does not always have: the order comes from the tree anyway.
    const auto clients = XProperty(x_, x_.root(), "_NET_CLIENT_LIST").values();
    std::vector<xcb_window_t> gone;
    for (const auto& [client, top] : topOf_) {
        if (std::ranges::find(clients, client) == clients.end()) gone.push_back(client);
    }
    std::ranges::for_each(gone, [this](auto client) { removeClient(client); });
    std::vector<xcb_window_t> come;
    std::ranges::copy_if(clients, std::back_inserter(come),
                         [this](auto client) { return !topOf_.contains(client); });
    watch_(come);
    findTopsOf(come);
}

/// One round trip for each level of nesting.
void WindowStack::findTopsOf(Windows clients) {
    std::vector<std::pair<xcb_window_t, xcb_window_t>> open; // The client, and how far up we are.
    open.reserve(clients.size());
    for (const auto client : clients)
        open.emplace_back(client, client);
    constexpr int deepestFrame = 3; // Window managers put two windows around a client at most.
    for (int level = 0; level < deepestFrame && !open.empty(); ++level) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        cookies.reserve(open.size());
        for (const auto& each : open)
            cookies.push_back(xcb_query_tree(x_.xcb(), each.second));
        decltype(open) next;
        for (std::size_t i = 0; i < open.size(); ++i) {
            const auto [client, window] = open[i];
            const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(x_.xcb(), cookies[i], nullptr));
            if (!tree) continue;
            if (tree->parent != x_.root()) {
                next.emplace_back(client, tree->parent);
                continue;
            }
            if (!tops_.contains(window)) addInFront(window); // The event that tells of it is on its way.
            topOf_[client] = window;
            tops_[window] = {.shown = {.window = client, .isManaged = true}};
        }
        open = std::move(next);
    }
}

void WindowStack::ask() {
    std::vector<std::pair<Top*, StackedWindowQuestion>> questions;
    for (auto& [window, top] : tops_) {
        if (top.isStale) questions.emplace_back(&top, StackedWindowQuestion(x_, top.shown.window));
    }
    for (auto& [top, question] : questions) {
        const auto before = std::exchange(top->shown, question.answer());
        top->shown.window = before.window; // Of one that has vanished, the server tells.
        top->shown.isManaged = before.isManaged;
        top->isStale = false;
        top->askedAt = question.sequence();
    }
}

// Being told ----------------------------------------------------------------------------------------------

void WindowStack::handle(const xcb_generic_event_t& event) {
    if (!isStarted_ || isBefore(event.full_sequence, startedAt_)) return;
    switch (event.response_type & 0x7f) {
    case XCB_CREATE_NOTIFY: {
        const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
        if (created.parent == x_.root() && !tops_.contains(created.window)) addInFront(created.window);
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        removeClient(window);
        removeTop(window);
        break;
    }
    case XCB_MAP_NOTIFY:
        makeStale(reinterpret_cast<const xcb_map_notify_event_t&>(event).window, event.full_sequence);
        break;
    case XCB_UNMAP_NOTIFY:
        makeStale(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window, event.full_sequence);
        break;
    case XCB_CONFIGURE_NOTIFY:
        handleConfigured(reinterpret_cast<const xcb_configure_notify_event_t&>(event), event.full_sequence);
        break;
    case XCB_REPARENT_NOTIFY:
        handleReparented(reinterpret_cast<const xcb_reparent_notify_event_t&>(event));
        break;
    case XCB_CIRCULATE_NOTIFY: {
        const auto& turned = reinterpret_cast<const xcb_circulate_notify_event_t&>(event);
        const bool isRaised = turned.place == XCB_PLACE_ON_TOP && !order_.empty();
        if (tops_.contains(turned.window))
            placeAbove(turned.window, isRaised ? order_.back() : xcb_window_t{XCB_WINDOW_NONE});
        break;
    }
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window != x_.root() || change.atom != x_.atom("_NET_CLIENT_LIST")) break;
        areClientsStale_ = true;
        changed.emit();
        break;
    }
    default:
        break;
    }
}

// Raising a window, and the notice that window managers send with it, tell the old place once more.
void WindowStack::handleConfigured(const xcb_configure_notify_event_t& change, std::uint32_t sequence) {
    const bool isByManager =
        change.response_type & 0x80; // With coordinates of the root, and without an order.
    const double border = 2 * change.border_width;
    const Rect place{double(change.x), double(change.y), change.width + border, change.height + border};
    if (isByManager) {
        const auto top = topOf_.find(change.window);
        if (top != topOf_.end() && tops_.at(top->second).shown.bounds == place) return;
        makeStale(change.window, sequence);
        return;
    }
    const auto top = tops_.find(change.window);
    if (top == tops_.end()) return makeStale(change.window, sequence);
    if (std::exchange(top->second.place, place) != place) makeStale(change.window, sequence);
    placeAbove(change.window, change.above_sibling);
}

void WindowStack::handleReparented(const xcb_reparent_notify_event_t& change) {
    removeClient(change.window); // Which top it has now is found out like that of a new one.
    removeTop(change.window);
    if (change.parent == x_.root()) addInFront(change.window);
    areClientsStale_ = true;
}

void WindowStack::makeStale(xcb_window_t window, std::uint32_t sequence) {
    const auto managed = topOf_.find(window);
    const auto top = tops_.find(managed == topOf_.end() ? window : managed->second);
    if (top == tops_.end() || isBefore(sequence, top->second.askedAt)) return;
    top->second.isStale = true;
    if (top->second.shown.isManaged) changed.emit();
}

void WindowStack::addInFront(xcb_window_t top) {
    order_.push_back(top);
    tops_[top] = {.shown = {.window = top}};
}

/// None: at the bottom.
void WindowStack::placeAbove(xcb_window_t top, xcb_window_t sibling) {
    const auto old = std::ranges::find(order_, top);
    if (old == order_.end() || top == sibling) return;
    const auto below = old == order_.begin() ? xcb_window_t{XCB_WINDOW_NONE} : *std::prev(old);
    if (below == sibling) return;
    order_.erase(old);
    const auto found = std::ranges::find(order_, sibling);
    order_.insert(found == order_.end() ? order_.begin() : std::next(found), top);
    if (tops_.at(top).shown.isManaged) changed.emit();
}

void WindowStack::removeTop(xcb_window_t top) {
    if (tops_.erase(top) == 0) return;
    std::erase(order_, top);
    const auto orphans = std::erase_if(topOf_, [&](const auto& each) { return each.second == top; });
    if (orphans == 0) return;
    areClientsStale_ = true;
    changed.emit();
}

void WindowStack::removeClient(xcb_window_t client) {
    const auto known = topOf_.find(client);
    if (known == topOf_.end()) return;
    tops_[known->second] = {.shown = {.window = known->second}};
    topOf_.erase(known);
    changed.emit();
}

} // namespace quorvane
