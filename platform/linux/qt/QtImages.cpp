#include "platform/linux/qt/QtImages.h"

#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <QUrl>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int iconSize = 18;        // points
constexpr int fontSize = 11;        // points high, for two letters side by side
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

ImageRef drawLettersIcon(const std::string& letters) {
    const auto ratio = qGuiApp->devicePixelRatio();
    QImage image(QSizeF(iconSize * ratio, iconSize * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(fontSize);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRect(0, 0, iconSize, iconSize), Qt::AlignCenter, textOf(letters));
    painter.end();
    return QtImage::make(std::move(image));
}

} // namespace quorvane
