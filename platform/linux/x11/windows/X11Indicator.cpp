#include "platform/linux/x11/windows/X11Indicator.h"

#include "platform/linux/qt/IndicatorPicture.h"

namespace quorvane {

void X11Indicator::moveTo(Point bottomLeft) {
    const auto points = screens_.points();
    native_.moveTo(points.topLeftPixel(bottomLeft, indicatorSizeInPixels(points.scale)));
}

} // namespace quorvane
