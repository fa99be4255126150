#pragma once

#include <cstdint>

#include "platform/Image.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// A picture held as an `NSImage`, which nobody changes any more.
class MacImage : public Image {
public:
    explicit MacImage(NSImage* image) : image_(image) {}

    /// Null for nil, so that a failed load reads as a missing picture.
    static ImageRef make(NSImage* image);

    /// The picture of any `Image` this desktop made; nil for null.
    static NSImage* unwrapped(const ImageRef& image);

    Size size() const override;
    std::vector<std::uint8_t> pixelData() const override;
    ImageRef redrawn(Size size) const override;

private:
    NSImage* image_;
};

} // namespace quorvane
