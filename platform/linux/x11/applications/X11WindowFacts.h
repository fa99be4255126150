#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/linux/applications/WindowFacts.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Asks all the windows in one round trip. None for a window that has vanished.
std::vector<std::optional<WindowFacts>> factsOf(XConnection& x, std::span<const xcb_window_t> windows);

} // namespace quorvane
