#pragma once

#include <cstdint>
#include <vector>

#include "platform/Screens.h"
#include "platform/linux/applications/SessionWorkspace.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/windows/PointSpace.h"

namespace quorvane {

/// The monitors of RandR, or the whole X screen where the server knows none. Read when asked for the first
/// time and after each change, so that on a single monitor an answer needs no round trip.
///
/// A screen's number is the atom of its monitor's name: the same as long as the server runs, also when the
/// monitor is unplugged and comes back, and never 0, while positions in a list move when one disappears.
class X11Screens : public Screens {
public:
    /// `scale`: pixels a point, above 0.
    X11Screens(XConnection& x, const SessionWorkspace& workspace, double scale);
    X11Screens(const X11Screens&) = delete;
    X11Screens& operator=(const X11Screens&) = delete;

    /// The screen with the centre of the active window, or with its largest part; the primary one when there
    /// is no such window.
    std::optional<Screen> mainScreen() const override;

    /// X has one depth for all monitors, so this is the primary one.
    std::optional<Screen> deepestScreen() const override;

    /// As of now: it changes with the monitors.
    PointSpace points() const { return {monitors().front().frame, scale_}; }

private:
    struct Monitor {
        std::int32_t number = 0;
        Rect frame; ///< Pixels, origin at the top-left of the X screen.
        bool isPrimary = false;
    };

    void handle(const xcb_generic_event_t& event);
    const std::vector<Monitor>& monitors() const; ///< The primary one first, never empty.
    std::vector<Monitor> readMonitors() const;
    std::optional<Rect> activeWindowFrame() const; ///< Pixels.
    Screen screenOf(const Monitor& monitor) const;

    XConnection& x_;
    const SessionWorkspace& workspace_;
    double scale_;
    bool hasRandr_;
    int firstRandrEvent_;
    mutable std::vector<Monitor> monitors_; ///< Empty when they must be read again.
    Subscription events_;
};

} // namespace quorvane
