#include "platform/linux/qt/QtImages.h"

#include <utility>

#include <QImageReader>
#include <QUrl>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr double resourceScale = 2; // the resources are drawn for two pixels a point

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace

ImageRef QtImages::imageWithContentsOfURL(std::string_view url) const {
    const QUrl location(textOf(url));
    const auto path = location.isLocalFile() ? location.toLocalFile() : textOf(url);
    return QtImage::make(QImage(path));
}

ImageRef QtImages::imageNamed(std::string_view name) const {
    QImageReader reader(QStringLiteral(":/%1@2x.png").arg(textOf(name)), "png");
    reader.setAutoDetectImageFormat(false); // or every image format plugin there is would be loaded
    auto image = reader.read();
    image.setDevicePixelRatio(resourceScale);
    return QtImage::make(std::move(image));
}

} // namespace quorvane
