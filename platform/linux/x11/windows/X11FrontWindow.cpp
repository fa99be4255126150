#include "platform/linux/x11/windows/X11FrontWindow.h"

#include <chrono>

#include "platform/linux/x11/applications/XWindow.h"

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds pauseBetweenChanges{30};

/// The window whose bounds may have changed.
xcb_window_t changedWindow(XConnection& x, const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window;
    case XCB_MAP_NOTIFY:
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
    case XCB_UNMAP_NOTIFY:
        return reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return change.atom == x.atom("_GTK_FRAME_EXTENTS") ? change.window : xcb_window_t{XCB_WINDOW_NONE};
    }
    default:
        return XCB_WINDOW_NONE;
    }
}

} // namespace

X11FrontWindow::X11FrontWindow(XConnection& x, const SessionWorkspace& workspace, WindowStack& stack)
    : x_(x)
    , workspace_(workspace)
    , followed_(xWindow(workspace.activeWindow()))
    , events_(x.onEvent([this](const auto& event) { handle(event); }))
    , stackChanges_(stack.changed.connect([this] { collect(); })) {
    x_.internAtoms({"_GTK_FRAME_EXTENTS"});
    collecting_.setSingleShot(true);
    collecting_.setInterval(pauseBetweenChanges);
    QObject::connect(&collecting_, &QTimer::timeout, &collecting_, [this] { changed.emit(); });
}

void X11FrontWindow::handle(const xcb_generic_event_t& event) {
    // The workspace has seen the event before, and has no active window any more if that one was destroyed.
    const auto active = xWindow(workspace_.activeWindow());
    if (active != XCB_WINDOW_NONE) followed_ = active;
    const auto window = changedWindow(x_, event);
    if (window != XCB_WINDOW_NONE && window == followed_) collect();
}

void X11FrontWindow::collect() {
    if (!collecting_.isActive()) collecting_.start();
}

} // namespace quorvane
