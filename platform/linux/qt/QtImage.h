#pragma once

#include <utility>

#include <QImage>

#include "platform/Image.h"

namespace quorvane {

/// A picture held as a `QImage`; its device pixel ratio ties pixels to points.
class QtImage : public Image {
public:
    explicit QtImage(QImage image) : image_(std::move(image)) {}

    /// Null for a null image, so that a failed load reads as a missing picture.
    static ImageRef make(QImage image);

    /// The picture of any `Image` this backend made; a null image for null.
    static QImage unwrapped(const ImageRef& image);

    Size size() const override;
    std::vector<std::uint8_t> pixelData() const override; ///< Red, green, blue, alpha; a pixel a point.
    ImageRef redrawn(Size size) const override;

private:
    QImage image_;
};

} // namespace quorvane
