#include "platform/macos/shell/TemplateShape.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int darkest = 40; // of 255: colour profiles make black a little lighter
constexpr int clear = 8;    // of 255

} // namespace

bool isTemplateShape(std::span<const std::uint8_t> pixels) {
    bool hasGround = false;
    bool hasShape = false;
    for (; pixels.size() >= bytesPerPixel; pixels = pixels.subspan(bytesPerPixel)) {
        if (*std::ranges::max_element(pixels.first(bytesPerPixel - 1)) > darkest) return false;
        const bool isClear = pixels[bytesPerPixel - 1] < clear;
        hasGround = hasGround || isClear;
        hasShape = hasShape || !isClear;
    }
    return hasGround && hasShape;
}

} // namespace quorvane
