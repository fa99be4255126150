#include "platform/linux/wayland/WaylandDisplay.h"

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

WaylandDisplay& displayOf(void* data) {
    return *static_cast<WaylandDisplay*>(data);
}

constexpr wl_registry_listener registryListener{
    .global = [](void* data, wl_registry* /*registry*/, std::uint32_t number, const char* interface,
                 std::uint32_t version) { displayOf(data).offered.emit(number, interface, version); },
    .global_remove = [](void* data, wl_registry* /*registry*/,
                        std::uint32_t number) { displayOf(data).withdrawn.emit(number); }};

constexpr wl_callback_listener startListener{
    .done = [](void* data, wl_callback* /*callback*/, std::uint32_t /*serial*/) {
        displayOf(data).ready.emit();
    }};

} // namespace

std::unique_ptr<WaylandDisplay> WaylandDisplay::open() {
    auto* display = wl_display_connect(nullptr);
    return display ? std::unique_ptr<WaylandDisplay>(new WaylandDisplay(display)) : nullptr;
}

WaylandDisplay::WaylandDisplay(wl_display* display)
    : display_(display)
    , registry_(wl_display_get_registry(display))
    , start_(wl_display_sync(display))
    , incoming_(wl_display_get_fd(display), QSocketNotifier::Read) {
    wl_registry_add_listener(registry_.get(), &registryListener, this);
    wl_callback_add_listener(start_.get(), &startListener, this);
    QObject::connect(&incoming_, &QSocketNotifier::activated, &incoming_, [this] { read(); });
    flush();
}

void WaylandDisplay::read() {
    while (wl_display_prepare_read(display_.get()) != 0)
        wl_display_dispatch_pending(display_.get());
    if (wl_display_read_events(display_.get()) != 0 || wl_display_dispatch_pending(display_.get()) < 0) {
        // The toolkit loses its connection at the same moment, and ends the process.
        incoming_.setEnabled(false);
        logLine("the Wayland compositor has gone");
        return;
    }
    flush();
}

void WaylandDisplay::flush() {
    // What does not fit now goes out with the next: these are a few small requests at a time.
    wl_display_flush(display_.get());
}

} // namespace quorvane
