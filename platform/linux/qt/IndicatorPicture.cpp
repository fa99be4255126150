#include "platform/linux/qt/IndicatorPicture.h"

#include <algorithm>
#include <cmath>

#include <QLinearGradient>
#include <QPainter>

namespace quorvane {
namespace {

constexpr int longestIconSide = 18; // points
constexpr double cornerRadius = 5;  // points

int pixelsOf(double points, double pixelsPerPoint) {
    return std::max(1, static_cast<int>(std::lround(points * pixelsPerPoint)));
}

/// A key of a keyboard: light, with a border that tells it from a white window.
void drawBox(QPainter& painter, int size, double pixelsPerPoint) {
    const double line = pixelsOf(0.5, pixelsPerPoint);
    QLinearGradient light(0, 0, 0, size);
    light.setColorAt(0, QColor(255, 255, 255));
    light.setColorAt(1, QColor(233, 235, 239));
    painter.setPen(QPen(QColor(128, 134, 145), line));
    painter.setBrush(light);
    const auto radius = cornerRadius * pixelsPerPoint - line / 2;
    painter.drawRoundedRect(QRectF(line / 2, line / 2, size - line, size - line), radius, radius);
}

} // namespace

int indicatorSizeInPixels(double pixelsPerPoint) {
    return pixelsOf(indicatorSize, pixelsPerPoint);
}

QImage drawIndicator(const QImage& icon, bool hasBox, const QColor& ground, double pixelsPerPoint) {
    const auto size = indicatorSizeInPixels(pixelsPerPoint);
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    if (picture.isNull()) return picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasBox) drawBox(painter, size, pixelsPerPoint);
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
    painter.drawImage((size - pixels.width()) / 2, (size - pixels.height()) / 2, scaled);
    return picture;
}

} // namespace quorvane
