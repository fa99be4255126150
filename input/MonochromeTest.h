#pragma once

#include <cstdint>
#include <span>

#include "platform/Image.h"

namespace quorvane {

/// Whether a picture has no colour to speak of, so that it needs a box behind it to be seen on any ground.
/// No picture, and one of zero width or height, is not monochrome.
bool isMonochrome(const ImageRef& image);

/// The same for raw bytes, taken as rows of 4-byte pixels, as many as the size says, one row right behind the
/// other. Bytes that are missing at the end are not looked at.
bool isMonochrome(Size size, std::span<const std::uint8_t> pixelData);

/// The picture redrawn at that size.
ImageRef scaleImage(const ImageRef& image, Size toSize);

} // namespace quorvane
