#include "platform/linux/qt/TemplateIcon.h"

#include <QPainter>
#include <QPixmap>

#include "platform/linux/qt/QtImage.h"
#include "platform/linux/qt/Shapes.h"

namespace quorvane {
namespace {

constexpr int tileSize = 64; // pixels: whoever shows the icon scales it
constexpr int glyphMargin = 5;
constexpr double tileRadius = 13;

} // namespace

QIcon iconOfTemplate(const ImageRef& shape) {
    auto glyph = QtImage::unwrapped(shape);
    if (glyph.isNull()) return {};
    glyph.setDevicePixelRatio(1);
    QImage tile(tileSize, tileSize, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(52, 58, 70));
    painter.drawRoundedRect(tile.rect(), tileRadius, tileRadius);
    painter.drawImage(tile.rect().marginsRemoved({glyphMargin, glyphMargin, glyphMargin, glyphMargin}),
                      inColour(glyph, Qt::white));
    painter.end();
    return QIcon(QPixmap::fromImage(tile));
}

} // namespace quorvane
