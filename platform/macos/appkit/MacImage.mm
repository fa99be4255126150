#import "platform/macos/appkit/MacImage.h"

#include <memory>

#include "platform/macos/CFRef.h"

namespace quorvane {

ImageRef MacImage::make(NSImage* image) {
    return image ? std::make_shared<MacImage>(image) : nullptr;
}

NSImage* MacImage::unwrapped(const ImageRef& image) {
    const auto* macImage = dynamic_cast<const MacImage*>(image.get());
    return macImage ? macImage->image_ : nil;
}

Size MacImage::size() const {
    return {image_.size.width, image_.size.height};
}

std::vector<std::uint8_t> MacImage::pixelData() const {
    NSData* tiff = image_.TIFFRepresentation;
    if (!tiff) return {};
    const auto source =
        CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithData((__bridge CFDataRef)tiff, nullptr));
    if (!source) return {};
    const auto first = CFRef<CGImageRef>::adopt(CGImageSourceCreateImageAtIndex(source.get(), 0, nullptr));
    if (!first) return {};
    // The provider belongs to the picture.
    auto* provider = CGImageGetDataProvider(first.get());
    NSData* data = provider ? (__bridge_transfer NSData*)CGDataProviderCopyData(provider) : nil;
    const auto* bytes = static_cast<const std::uint8_t*>(data.bytes);
    if (!bytes) return {};
    return {bytes, bytes + data.length};
}

ImageRef MacImage::redrawn(Size size) const {
    NSImage* target = [[NSImage alloc] initWithSize:NSMakeSize(size.width, size.height)];
    // In a picture without an area there is nothing to draw in: to try raises an exception.
    if (size.width >= 1 && size.height >= 1) {
        // Drawn now and not when it is shown first: so the pixels are there.
        [target lockFocus];
        [image_ drawInRect:NSMakeRect(0, 0, size.width, size.height)
                  fromRect:NSZeroRect
                 operation:NSCompositingOperationCopy
                  fraction:1];
        [target unlockFocus];
    }
    return make(target);
}

} // namespace quorvane
