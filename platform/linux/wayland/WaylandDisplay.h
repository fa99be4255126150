#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include <QSocketNotifier>
#include <wayland-client.h>

#include "platform/Signal.h"

namespace quorvane {

/// Ends a Wayland object that this client made.
struct WaylandDeleter {
    void operator()(wl_buffer* object) const { wl_buffer_destroy(object); }
    void operator()(wl_callback* object) const { wl_callback_destroy(object); }
    void operator()(wl_compositor* object) const { wl_compositor_destroy(object); }
    void operator()(wl_display* object) const { wl_display_disconnect(object); }
    void operator()(wl_output* object) const { wl_output_destroy(object); }
    void operator()(wl_pointer* object) const { wl_pointer_destroy(object); }
    void operator()(wl_registry* object) const { wl_registry_destroy(object); }
    void operator()(wl_seat* object) const { wl_seat_destroy(object); }
    void operator()(wl_shm* object) const { wl_shm_destroy(object); }
    void operator()(wl_surface* object) const { wl_surface_destroy(object); }
};
template <class Object>
using WaylandRef = std::unique_ptr<Object, WaylandDeleter>;

/// This program's own connection to the compositor, beside the toolkit's. Events arrive from the event loop,
/// and nothing here waits for one.
class WaylandDisplay {
public:
    /// Null when the display that the environment names refuses.
    static std::unique_ptr<WaylandDisplay> open();
    WaylandDisplay(const WaylandDisplay&) = delete;
    WaylandDisplay& operator=(const WaylandDisplay&) = delete;

    wl_display* native() const { return display_.get(); }

    /// What the compositor offers: its number, the protocol's name and version. All that is there at the
    /// start is told before `ready`.
    Signal<std::uint32_t, std::string_view, std::uint32_t> offered;
    Signal<std::uint32_t> withdrawn;
    Signal<> ready;

    /// Makes an object of what was offered, in the version that both sides know.
    template <class Object>
    Object* bind(std::uint32_t number, const wl_interface& interface, std::uint32_t theirs,
                 std::uint32_t ours) {
        return static_cast<Object*>(
            wl_registry_bind(registry_.get(), number, &interface, std::min(theirs, ours)));
    }

    /// Has what was requested so far reach the compositor.
    void flush();

private:
    explicit WaylandDisplay(wl_display* display);
    void read();

    WaylandRef<wl_display> display_;
    WaylandRef<wl_registry> registry_;
    WaylandRef<wl_callback> start_;
    QSocketNotifier incoming_;
};

} // namespace quorvane
