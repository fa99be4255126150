#pragma once

#include <cstdint>
#include <span>

namespace quorvane {

/// Whether only the shape of a picture counts: it is black on a clear ground, as icons of input sources
/// mostly are, and may be drawn in any other colour. Not a black and white picture, nor one that is all
/// black. `pixels` are 8 bits each of red, green, blue and alpha, the colours multiplied by alpha.
bool isTemplateShape(std::span<const std::uint8_t> pixels);

} // namespace quorvane
