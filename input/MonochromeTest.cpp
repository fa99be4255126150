#include "input/MonochromeTest.h"

#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int monochromeSpread = 7; // two channels together spread less than this

struct Extremes {
    int smallest = 255;
    int largest = 0;

    void include(int value) {
        smallest = std::min(smallest, value);
        largest = std::max(largest, value);
    }
    int spread() const { return largest - smallest; }
};

/// A picture's width or height in whole points. Far beyond any screen counts as nothing, so that the number
/// of bytes cannot overflow.
std::size_t wholePoints(double length) {
    constexpr double beyondAnyScreen = 1 << 20;
    return length >= 1 && length <= beyondAnyScreen ? static_cast<std::size_t>(length) : 0;
}

} // namespace

bool isMonochrome(Size size, std::span<const std::uint8_t> pixelData) {
    const auto pixels =
        std::min(wholePoints(size.width) * wholePoints(size.height), pixelData.size() / bytesPerPixel);
    if (pixels == 0) return false;

    Extremes first;
    Extremes second;
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        first.include(pixelData[pixel * bytesPerPixel]);
        second.include(pixelData[pixel * bytesPerPixel + 1]);
    }
    // The third channel counts only at the very last pixel, folded into the spread of the first: icons of the
    // kind this tells apart differ there, and the rules that users know rest on it.
    Extremes folded = first;
    folded.include(pixelData[(pixels - 1) * bytesPerPixel + 2]);

    return first.spread() + second.spread() < monochromeSpread ||
           second.spread() + folded.spread() < monochromeSpread ||
           first.spread() + folded.spread() < monochromeSpread;
}

bool isMonochrome(const ImageRef& image) {
    return image && isMonochrome(image->size(), image->pixelData());
}

ImageRef scaleImage(const ImageRef& image, Size toSize) {
    return image ? image->redrawn(toSize) : nullptr;
}

} // namespace quorvane
