#include "platform/TemplateShape.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t bytesPerPixel = 4;

// Of 255.
constexpr int barelySeen = 32;
constexpr int clearlySeen = 128;
constexpr int widestTone = 32; ///< What is less coloured, or varies less, is of one tone for the eye.

} // namespace

bool isTemplateShape(std::span<const std::uint8_t> pixels) {
    bool hasGround = false;
    int lightest = 0;
    int darkest = 255;
    for (; pixels.size() >= bytesPerPixel; pixels = pixels.subspan(bytesPerPixel)) {
        const int alpha = pixels[bytesPerPixel - 1];
        hasGround = hasGround || alpha < barelySeen;
        if (alpha < clearlySeen) continue;
        const auto [least, most] = std::ranges::minmax(pixels.first(bytesPerPixel - 1));
        lightest = std::max(lightest, most * 255 / alpha);
        darkest = std::min(darkest, least * 255 / alpha);
    }
    const bool hasShape = darkest <= lightest;
    return hasGround && hasShape && lightest - darkest <= widestTone;
}

} // namespace quorvane
