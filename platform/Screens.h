#pragma once

#include <cstdint>
#include <optional>

#include "platform/Geometry.h"

namespace quorvane {

struct Screen {
    std::int32_t number = 0; ///< Tells screens apart as long as they stay connected; never 0.
    Rect frame;              ///< Origin at the bottom-left of the primary screen.
    int depth = 0;           ///< Bits of a pixel.

    bool operator==(const Screen&) const = default;
};

class Screens {
public:
    virtual ~Screens() = default;

    /// The screen with the keyboard focus.
    virtual std::optional<Screen> mainScreen() const = 0;

    /// The screen with the most bits a pixel, the primary one among equals.
    virtual std::optional<Screen> deepestScreen() const = 0;
};

} // namespace quorvane
