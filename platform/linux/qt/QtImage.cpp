#include "platform/linux/qt/QtImage.h"

#include <QPainter>

namespace quorvane {

ImageRef QtImage::make(QImage image) {
    if (image.isNull()) return nullptr;
    return std::make_shared<QtImage>(std::move(image));
}

QImage QtImage::unwrapped(const ImageRef& image) {
    const auto* qtImage = dynamic_cast<const QtImage*>(image.get());
    return qtImage ? qtImage->image_ : QImage();
}

Size QtImage::size() const {
    const auto size = image_.deviceIndependentSize();
    return {size.width(), size.height()};
}

std::vector<std::uint8_t> QtImage::pixelData() const {
    const auto rgba = image_.convertToFormat(QImage::Format_RGBA8888);
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(rgba.width()) * static_cast<std::size_t>(rgba.height()) * 4);
    for (int row = 0; row < rgba.height(); ++row) {
        const auto* line = rgba.constScanLine(row);
        bytes.insert(bytes.end(), line, line + std::ptrdiff_t{4} * rgba.width());
    }
    return bytes;
}

ImageRef QtImage::redrawn(Size size) const {
    const auto ratio = image_.devicePixelRatio();
    QImage target(QSizeF(size.width * ratio, size.height * ratio).toSize(),
                  QImage::Format_ARGB32_Premultiplied);
    if (target.isNull()) return nullptr;
    target.setDevicePixelRatio(ratio);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRectF(0, 0, size.width, size.height), image_, QRectF(image_.rect()));
    painter.end();
    return make(std::move(target));
}

} // namespace quorvane
