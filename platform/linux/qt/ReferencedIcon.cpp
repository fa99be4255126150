#include "platform/linux/qt/ReferencedIcon.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <QIcon>

#include "platform/linux/qt/QtImage.h"
#include "platform/linux/qt/Shapes.h"

namespace quorvane {
namespace {

constexpr int iconSize = 18; // points

int longestSide(const QSize& size) {
    return std::max(size.width(), size.height());
}

/// Of the sizes that there are the smallest one with at least that many pixels on its longest side, else the
/// largest: to be made smaller keeps a picture sharp. `QIcon` alone prefers the nearest one.
QImage imageOf(const QIcon& icon, int pixels) {
    auto best = icon.pixmap(QSize(pixels, pixels), 1).toImage();
    auto sizes = icon.availableSizes();
    std::ranges::sort(sizes, {}, longestSide);
    for (const auto& size : sizes) {
        if (longestSide(best.size()) >= pixels) break;
        if (longestSide(size) > longestSide(best.size())) best = icon.pixmap(size, 1).toImage();
    }
    best.setDevicePixelRatio(1);
    return best;
}

} // namespace

ImageRef referencedIcon(const std::string& reference) {
    const auto name = QString::fromStdString(reference);
    const auto icon = name.startsWith('/') ? QIcon(name) : QIcon::fromTheme(name);
    const auto ratio = qGuiApp->devicePixelRatio();
    const auto pixels = static_cast<int>(std::lround(iconSize * ratio));
    auto image = imageOf(icon, pixels);
    if (image.isNull()) return nullptr;
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (longestSide(image.size()) > pixels)
        image = image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const bool isInOneColour = name.contains(QLatin1String("-symbolic")) || isShape(image);
    if (isInOneColour) image = inColour(image, Qt::black);
    image.setDevicePixelRatio(std::clamp(double(longestSide(image.size())) / iconSize, 1.0, ratio));
    return QtImage::make(std::move(image));
}

} // namespace quorvane
