#include "platform/linux/qt/Shapes.h"

#include <QPainter>

#include "platform/TemplateShape.h"

namespace quorvane {

bool isShape(const QImage& picture) {
    const auto rgba = picture.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    return isTemplateShape({rgba.constBits(), static_cast<std::size_t>(rgba.sizeInBytes())});
}

QImage inColour(QImage shape, const QColor& colour) {
    shape.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), shape.deviceIndependentSize()), colour);
    return shape;
}

} // namespace quorvane
