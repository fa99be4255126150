#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace quorvane {

/// A place among the pixels of the X screen, from its top-left corner; these are all the places there are.
struct PixelPosition {
    std::int16_t x = 0;
    std::int16_t y = 0;
    bool operator==(const PixelPosition&) const = default;
};

/// Where the points that the ports speak of lie among the pixels of the X screen: they are larger on dense
/// monitors and count from a corner of the primary monitor, wherever on the X screen that one stands.
///
/// What is called pixels here has its origin at the top-left of the X screen.
struct PointSpace {
    Rect primary;     ///< The primary monitor, in pixels.
    double scale = 1; ///< Pixels a point.

    Rect fromTopLeft(const Rect& pixels) const;    ///< Points, origin at the primary monitor's top-left.
    Rect fromBottomLeft(const Rect& pixels) const; ///< Points, origin at the primary monitor's bottom-left.

    /// The top-left pixel of something `height` pixels high whose bottom-left corner is at that point, from
    /// the primary monitor's bottom-left. Any number will do: the nearest place there is, and the monitor's
    /// own edge for what is no number.
    PixelPosition topLeftPixel(Point bottomLeft, int height) const;
};

/// The nearest coordinate that X can hold; 0 for what is no number.
std::int16_t nearestCoordinate(double pixels);

} // namespace quorvane
