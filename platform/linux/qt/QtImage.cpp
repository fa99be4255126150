#include "platform/linux/qt/QtImage.h"

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
    auto points = image_;
    points.setDevicePixelRatio(1);
    const QSize size(static_cast<int>(image_.deviceIndependentSize().width()),
                     static_cast<int>(image_.deviceIndependentSize().height()));
    if (!size.isEmpty() && size != image_.size())
        points = points.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const auto rgba = points.convertToFormat(QImage::Format_RGBA8888);
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
    const auto pixels = QSizeF(size.width * ratio, size.height * ratio).toSize();
    if (pixels.isEmpty()) return nullptr;
    auto target = image_;
    // The same number of pixels are the same pixels, also where a point is no whole number of them.
    if (pixels != image_.size())
        target = image_.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                     .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    target.setDevicePixelRatio(ratio);
    return make(std::move(target));
}

} // namespace quorvane
