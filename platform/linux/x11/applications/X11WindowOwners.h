#pragma once

#include <span>

#include "platform/linux/applications/WindowOwners.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Asks windows of the X server for what tells their application. What has been found is kept until the
/// window is destroyed or says something else: whoever wants to know of that must register with the
/// connection after this object was made.
class X11WindowOwners {
public:
    X11WindowOwners(XConnection& x, WindowOwners& owners);
    X11WindowOwners(const X11WindowOwners&) = delete;
    X11WindowOwners& operator=(const X11WindowOwners&) = delete;

    /// What `ownerOf` needs to know of all these windows, in one round trip. From now on, the connection gets
    /// their property, structure and focus events.
    void learn(std::span<const xcb_window_t> windows);

    /// Null for a window that has vanished. No round trip for a known window. The pointer is valid until
    /// control returns to the event loop.
    const WindowOwner* ownerOf(xcb_window_t window);

    /// True if the property takes part in finding a window's application.
    bool isIdentifying(xcb_atom_t property) const;

private:
    void handle(const xcb_generic_event_t& event);

    XConnection& x_;
    WindowOwners& owners_;
    Subscription events_;
};

} // namespace quorvane
