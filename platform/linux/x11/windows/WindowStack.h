#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <unordered_map>
#include <vector>

#include "platform/Signal.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/windows/StackedWindow.h"

namespace quorvane {

/// The windows as the server stacks them, kept up by the events that it sends anyway: only a window of which
/// something was told is asked about again. Nothing is kept up before somebody asks for the first time.
///
/// Window managers put a window into frames of their own: it is the outermost frame that is stacked, and the
/// window in it that is meant here. A child of the root is called a top.
class WindowStack {
public:
    using Windows = std::span<const xcb_window_t>;

    /// `watch` is told of managed windows before they are asked about, and sees to it that the connection
    /// gets their structure events.
    explicit WindowStack(
        XConnection& x, std::function<void(Windows)> watch = [](auto) {});
    WindowStack(const WindowStack&) = delete;
    WindowStack& operator=(const WindowStack&) = delete;

    /// Front to back, the invisible ones at the end. Of those that no window manager manages only the visible
    /// ones. A few round trips at the first time and for new windows, one for those that have changed, and
    /// none when nothing has happened.
    std::vector<StackedWindow> windows();

    /// A managed window may have moved, come or gone.
    Signal<> changed;

private:
    struct Top {
        StackedWindow shown; ///< The window that is meant: the managed one in it, or itself.
        Rect place;          ///< As last told.
        bool isStale = true;
        std::uint32_t askedAt = 0; ///< The request's number: what was told before it is known.
    };

    void start();
    void readClients();
    void findTopsOf(Windows clients);
    void ask();

    void handle(const xcb_generic_event_t& event);
    void handleConfigured(const xcb_configure_notify_event_t& change, std::uint32_t sequence);
    void handleReparented(const xcb_reparent_notify_event_t& change);
    void makeStale(xcb_window_t window, std::uint32_t sequence);
    void addInFront(xcb_window_t top);
    void placeAbove(xcb_window_t top, xcb_window_t sibling);
    void removeTop(xcb_window_t top);
    void removeClient(xcb_window_t client);

    XConnection& x_;
    std::function<void(Windows)> watch_;
    bool isStarted_ = false;
    bool areClientsStale_ = true;
    std::uint32_t startedAt_ = 0;     ///< The request's number.
    std::vector<xcb_window_t> order_; ///< Tops, the one in front last.
    std::unordered_map<xcb_window_t, Top> tops_;
    std::unordered_map<xcb_window_t, xcb_window_t> topOf_; ///< Of each managed window.
    Subscription events_;
};

} // namespace quorvane
