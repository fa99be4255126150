#pragma once

#include <cstdint>

namespace quorvane {

/// The number by which a session tells its windows apart.
using WindowId = std::uint64_t;

inline constexpr WindowId noWindow = 0;

} // namespace quorvane
