#pragma once

#include <cstdint>
#include <span>

namespace quorvane {

/// Whether only the shape of a picture counts: it is in one grey, made for one kind of ground, on a clear
/// ground, as icons of input sources mostly are, and may be drawn in any other colour. A picture that fills
/// its square brings its ground with it. `pixels` are 8 bits each of red, green, blue and alpha, the colours
/// multiplied by alpha.
bool isTemplateShape(std::span<const std::uint8_t> pixels);

} // namespace quorvane
