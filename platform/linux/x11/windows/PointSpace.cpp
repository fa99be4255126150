#include "platform/linux/x11/windows/PointSpace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorvane {

Rect PointSpace::fromTopLeft(const Rect& pixels) const {
    return {(pixels.x - primary.x) / scale, (pixels.y - primary.y) / scale, pixels.width / scale,
            pixels.height / scale};
}

Rect PointSpace::fromBottomLeft(const Rect& pixels) const {
    const double above = primary.y + primary.height - (pixels.y + pixels.height);
    return {(pixels.x - primary.x) / scale, above / scale, pixels.width / scale, pixels.height / scale};
}

PixelPosition PointSpace::topLeftPixel(Point bottomLeft, int height) const {
    const double right = std::isnan(bottomLeft.x) ? 0 : bottomLeft.x * scale;
    const double up = std::isnan(bottomLeft.y) ? 0 : bottomLeft.y * scale;
    return {nearestCoordinate(primary.x + right),
            nearestCoordinate(primary.y + primary.height - up - height)};
}

std::int16_t nearestCoordinate(double pixels) {
    if (std::isnan(pixels)) return 0;
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::round(std::clamp(pixels, double{Limits::min()}, double{Limits::max()})));
}

} // namespace quorvane
