#include "virtual-desktop/WaylandClient.h"

#include <algorithm>
#include <stdexcept>

namespace quorvane {

WaylandClient::WaylandClient() : display_(wl_display_connect(nullptr)) {
    if (!display_) throw std::runtime_error("no Wayland compositor");
    registry_ = keep(wl_display_get_registry(display_.get()));
    static constexpr wl_registry_listener listener{
        [](void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
            static_cast<WaylandClient*>(self)->offers_.try_emplace(interface, Offer{name, version});
        },
        [](void*, wl_registry*, std::uint32_t) {}};
    wl_registry_add_listener(registry_, &listener, this);
    roundTrip();
}

void* WaylandClient::bindAny(const wl_interface& interface, std::uint32_t version) {
    const auto offer = offers_.find(interface.name);
    if (offer == offers_.end())
        throw std::runtime_error(std::string("the compositor does not offer ") + interface.name);
    return keep(static_cast<wl_proxy*>(wl_registry_bind(registry_, offer->second.name, &interface,
                                                        std::min(version, offer->second.version))));
}

void WaylandClient::roundTrip() {
    if (wl_display_roundtrip(display_.get()) < 0) throw std::runtime_error("the compositor is gone");
}

void WaylandClient::run() {
    while (wl_display_dispatch(display_.get()) >= 0) {
    }
}

} // namespace quorvane
