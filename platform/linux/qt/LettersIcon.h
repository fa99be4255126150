#pragma once

#include <string>

#include <QImage>

#include "platform/Image.h"

namespace quorvane {

/// The template icon of a keyboard layout or an input method, 18 by 18 points: one sign, or two or three
/// letters. Null when there is nothing to be seen, or no font has a letter.
ImageRef drawLettersIcon(const std::string& letters);

/// The same for a screen of that density.
QImage imageOfLetters(const QString& letters, double pixelsPerPoint);

} // namespace quorvane
