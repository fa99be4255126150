#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace quorvane {

class Image;
using ImageRef = std::shared_ptr<const Image>;

/// An opaque picture. Never changes once made.
class Image {
public:
    virtual ~Image() = default;

    virtual Size size() const = 0; ///< In points, which need not be pixels.

    /// The bytes of the picture's first representation, rows from top to bottom, usually four bytes a pixel.
    /// Nothing ties their number to `size`: there may be fewer. Empty when there are no pixels to be had.
    virtual std::vector<std::uint8_t> pixelData() const = 0;

    /// The whole picture redrawn into a new one of that size.
    virtual ImageRef redrawn(Size size) const = 0;
};

/// Where pictures come from.
class Images {
public:
    virtual ~Images() = default;

    /// Null when there is no such file or it is no picture.
    virtual ImageRef imageWithContentsOfURL(std::string_view url) const = 0;

    /// A picture among the program's own resources; null when it is missing.
    virtual ImageRef imageNamed(std::string_view name) const = 0;
};

} // namespace quorvane
