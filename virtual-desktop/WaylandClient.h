#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <wayland-client.h>

namespace quorvane {

/// A connection to the compositor of the current WAYLAND_DISPLAY.
class WaylandClient {
public:
    /// Throws when nobody answers.
    WaylandClient();

    /// What the compositor offers of this interface, in this version or the older one that it has. Throws
    /// when it offers none. To be destroyed before this object, or to go with the connection.
    template <class T>
    T* bind(const wl_interface& interface, std::uint32_t version) {
        return static_cast<T*>(bindAny(interface, version));
    }

    /// Has this object, made by a request, go with the connection, too.
    template <class T>
    T* keep(T* object) {
        objects_.emplace_back(reinterpret_cast<wl_proxy*>(object));
        return object;
    }

    /// When this returns, the compositor has done what it was asked for, and its events have been heard.
    void roundTrip();

    /// Hears events until the connection ends.
    void run();

private:
    struct Offer {
        std::uint32_t name, version;
    };
    struct Disconnect {
        void operator()(wl_display* display) const { wl_display_disconnect(display); }
    };

    struct Free { ///< The compositor hears of the connection's end.
        void operator()(wl_proxy* object) const { wl_proxy_destroy(object); }
    };

    void* bindAny(const wl_interface& interface, std::uint32_t version);

    std::unique_ptr<wl_display, Disconnect> display_;
    std::vector<std::unique_ptr<wl_proxy, Free>>
        objects_;           ///< They do not go with the connection by themselves.
    wl_registry* registry_; ///< One of them.
    std::map<std::string, Offer> offers_;
};

} // namespace quorvane
