#pragma once

#include <functional>

#include <QImage>

#include "platform/Geometry.h"

namespace quorvane {

/// The native window of the floating indicator: nothing but a picture, above everything on all workspaces,
/// which never gets the focus. Between `hide` and `show` it catches no clicks, and before the first `show`
/// there is no native window.
class IndicatorSurface {
public:
    virtual ~IndicatorSurface() = default;

    virtual double scale() const = 0; ///< Pixels of the picture a point.

    /// Replaces the picture, which must not be null, and shows it.
    virtual void show(const QImage& picture) = 0;

    virtual void hide() = 0;

    /// Its bottom-left corner, in points from the primary screen's. Any number will do: the nearest place
    /// there is.
    virtual void moveTo(Point bottomLeft) = 0;

    /// Other windows have come to the front: the picture belongs above them.
    virtual void raise() = 0;

    /// Asked when the left button goes down on the picture: whether it is to follow the pointer until the
    /// button is released. Set before the first `show`.
    std::function<bool()> mayBeDragged = [] { return false; };
};

} // namespace quorvane
