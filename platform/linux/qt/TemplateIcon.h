#pragma once

#include <QIcon>

#include "platform/Image.h"

namespace quorvane {

/// An icon made of a template image, for places that do not tell the colour of their ground: the shape in
/// white on a dark tile, to be seen on light and on dark panels. Empty for null.
QIcon iconOfTemplate(const ImageRef& shape);

} // namespace quorvane
