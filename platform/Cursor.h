#pragma once

#include <optional>

#include "platform/Geometry.h"

namespace quorvane {

/// The mouse cursor, whichever program has set it.
class Cursor {
public:
    virtual ~Cursor() = default;

    /// From the picture's top-left corner; none when the desktop does not tell.
    virtual std::optional<Point> hotSpot() const = 0;
};

} // namespace quorvane
