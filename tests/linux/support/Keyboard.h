#pragma once

#include <cstdint>

namespace quorvane {

// Keys, by the numbers of the hardware: they go through no layout.
constexpr std::uint8_t escape = 9, tab = 23, enter = 36, control = 37, space = 65, down = 116;

} // namespace quorvane
