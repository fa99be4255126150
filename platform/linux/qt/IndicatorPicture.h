#pragma once

#include <QImage>

namespace quorvane {

inline constexpr int indicatorSize = 20; // points: an icon of 18 on its box

/// How many pixels that is.
int indicatorSizeInPixels(double pixelsPerPoint);

enum class IndicatorBox { none, light, dark };

/// What the floating indicator shows: a picture of that size with the icon in its middle, at most 18 points
/// wide and high, on a box if there is to be one, else on the ground. On a box, an icon of which only the
/// shape counts has the colour that can be seen there. A null icon shows nothing.
QImage drawIndicator(const QImage& icon, IndicatorBox box, const QColor& ground, double pixelsPerPoint);

} // namespace quorvane
