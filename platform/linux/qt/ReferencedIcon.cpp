#include "platform/linux/qt/ReferencedIcon.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int iconSize = 18; // points

// Of 255.
constexpr int barelySeen = 32;
constexpr int clearlySeen = 128;
constexpr int widestTone = 32; ///< What is less coloured, or varies less, is of one tone for the eye.

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

/// Whether a picture is a shape in one grey, made for one kind of ground only. A picture that fills its
/// square brings its ground with it.
bool isShape(QImage picture) {
    picture.convertTo(QImage::Format_ARGB32); // Else the colours are darkened by what is seen through them.
    int lightest = 0;
    int darkest = 255;
    int unseen = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto pixel = picture.pixel(x, y);
            unseen += qAlpha(pixel) < barelySeen;
            if (qAlpha(pixel) < clearlySeen) continue;
            const auto [least, most] = std::minmax({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            if (most - least > widestTone) return false;
            lightest = std::max(lightest, most);
            darkest = std::min(darkest, least);
        }
    }
    return unseen > 0 && lightest - darkest <= widestTone;
}

void makeBlack(QImage& shape) {
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), Qt::black);
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
    if (isInOneColour) makeBlack(image);
    image.setDevicePixelRatio(std::clamp(double(longestSide(image.size())) / iconSize, 1.0, ratio));
    return QtImage::make(std::move(image));
}

} // namespace quorvane
