#pragma once

#include "platform/Cursor.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The cursor that the server shows at the moment, by the XFixes extension.
class X11Cursor : public Cursor {
public:
    /// `scale`: pixels a point.
    X11Cursor(XConnection& x, double scale) : x_(x), scale_(scale) {}

    /// One round trip.
    std::optional<Point> hotSpot() const override;

private:
    XConnection& x_;
    double scale_;
};

} // namespace quorvane
