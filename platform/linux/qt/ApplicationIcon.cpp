#include "platform/linux/qt/ApplicationIcon.h"

#include <QGuiApplication>
#include <QIcon>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int usualSize = 32; // points

} // namespace

QPixmap ApplicationIcon::load(const QString& name, const QSize& size, double pixelsPerPoint) {
    const auto icon = name.startsWith('/') ? QIcon(name) : QIcon::fromTheme(name);
    return icon.pixmap(size, pixelsPerPoint);
}

Size ApplicationIcon::size() const {
    return {usualSize, usualSize};
}

std::vector<std::uint8_t> ApplicationIcon::pixelData() const {
    const auto image = redrawn(size());
    return image ? image->pixelData() : std::vector<std::uint8_t>();
}

ImageRef ApplicationIcon::redrawn(Size size) const {
    const QSize points(static_cast<int>(size.width), static_cast<int>(size.height));
    return QtImage::make(load(name_, points, qGuiApp->devicePixelRatio()).toImage());
}

} // namespace quorvane
