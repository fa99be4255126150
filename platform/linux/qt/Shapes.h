#pragma once

#include <QColor>
#include <QImage>

namespace quorvane {

/// See `isTemplateShape`.
bool isShape(const QImage& picture);

/// The picture's shape in that colour.
QImage inColour(QImage shape, const QColor& colour);

} // namespace quorvane
