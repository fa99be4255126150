#pragma once

#include <string>

#include "platform/Geometry.h"
#include "platform/linux/applications/WindowFacts.h"

namespace quorvane {

/// A window as a Wayland compositor tells of it.
struct CompositorWindow {
    WindowFacts facts;
    std::string title;
    Rect bounds; ///< In points, from the top-left of all screens together.
    bool isHidden = false;

    bool operator==(const CompositorWindow&) const = default;
};

} // namespace quorvane
