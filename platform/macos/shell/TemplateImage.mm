#import "platform/macos/shell/TemplateImage.h"

#include <array>
#include <cstdint>

#include "platform/TemplateShape.h"
#include "platform/macos/CFRef.h"
#import "platform/macos/appkit/MacImage.h"

namespace quorvane {
namespace {

/// Icons are about as large; a shape stays one at any size.
constexpr std::size_t side = 18;

/// Whatever its own format, as `isTemplateShape` reads it.
std::array<std::uint8_t, side * side * 4> pixelsOf(NSImage* image) {
    std::array<std::uint8_t, side * side * 4> pixels{};
    const auto colours = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
    const auto context = CFRef<CGContextRef>::adopt(CGBitmapContextCreate(
        pixels.data(), side, side, 8, side * 4, colours.get(), kCGImageAlphaPremultipliedLast));
    if (!context) return pixels;
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:context.get()
                                                                               flipped:NO];
    [image drawInRect:NSMakeRect(0, 0, side, side)
             fromRect:NSZeroRect
            operation:NSCompositingOperationCopy
             fraction:1];
    [NSGraphicsContext restoreGraphicsState];
    return pixels;
}

} // namespace

NSImage* templateOf(const ImageRef& image) {
    NSImage* shape = [MacImage::unwrapped(image) copy]; // The picture itself is shared with others.
    [shape setTemplate:YES];
    return shape;
}

NSImage* adapting(const ImageRef& image) {
    NSImage* native = MacImage::unwrapped(image);
    return native && isTemplateShape(pixelsOf(native)) ? templateOf(image) : native;
}

} // namespace quorvane
