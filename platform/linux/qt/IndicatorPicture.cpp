#include "platform/linux/qt/IndicatorPicture.h"

#include <algorithm>
#include <cmath>

#include <QLinearGradient>
#include <QPainter>

#include "platform/linux/qt/Shapes.h"

namespace quorvane {
namespace {

constexpr int longestIconSide = 18; // points
constexpr double cornerRadius = 5;  // points

int pixelsOf(double points, double pixelsPerPoint) {
    return std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint)));
}

struct BoxColours {
    QColor top, bottom;
    QColor border; ///< Tells the box from a window of its colour.
    QColor ink;
};

/// A key of a keyboard.
BoxColours coloursOf(IndicatorBox box) {
    if (box == IndicatorBox::dark)
        return {QColor(66, 69, 75), QColor(52, 54, 59), QColor(128, 134, 145), QColor(240, 240, 242)};
    return {QColor(255, 255, 255), QColor(233, 235, 239), QColor(128, 134, 145), Qt::black};
}

void drawBox(QPainter& painter, const BoxColours& colours, int size, double pixelsPerPoint) {
    const double line = pixelsOf(0.5, pixelsPerPoint);
    QLinearGradient light(0, 0, 0, size);
    light.setColorAt(0, colours.top);
    light.setColorAt(1, colours.bottom);
    painter.setPen(QPen(colours.border, line));
    painter.setBrush(light);
    const auto radius = cornerRadius * pixelsPerPoint - line / 2;
    painter.drawRoundedRect(QRectF(line / 2, line / 2, size - line, size - line), radius, radius);
}

} // namespace

int indicatorSizeInPixels(double pixelsPerPoint) {
    return pixelsOf(indicatorSize, pixelsPerPoint);
}

QImage drawIndicator(const QImage& icon, IndicatorBox box, const QColor& ground, double pixelsPerPoint) {
    const auto size = indicatorSizeInPixels(pixelsPerPoint);
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    if (picture.isNull()) return picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto colours = coloursOf(box);
    const bool hasBox = box != IndicatorBox::none;
    if (hasBox) drawBox(painter, colours, size, pixelsPerPoint);
    if (icon.isNull()) return picture;

    auto points = icon.deviceIndependentSize();
    if (points.width() > longestIconSide || points.height() > longestIconSide)
        points.scale(longestIconSide, longestIconSide, Qt::KeepAspectRatio);
    const QSize pixels(pixelsOf(points.width(), pixelsPerPoint), pixelsOf(points.height(), pixelsPerPoint));
    // Scaled as an image, since a painter skips pixels when it makes a picture much smaller.
    auto scaled = icon.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (scaled.size() != pixels)
        scaled = scaled.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(1);
    if (hasBox && isShape(scaled)) scaled = inColour(scaled, colours.ink);
    painter.drawImage((size - pixels.width()) / 2, (size - pixels.height()) / 2, scaled);
    return picture;
}

} // namespace quorvane
