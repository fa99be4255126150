#pragma once

#include "platform/Cursor.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The cursor that the server shows at the moment, by the XFixes extension. What it is like is up to the
/// user's cursor theme: so the one for text, known by its name, has the hot spot of the native platform's
/// text cursor, by which the program recognises it.
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
