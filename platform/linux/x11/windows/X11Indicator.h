#pragma once

#include "platform/linux/qt/IndicatorSurface.h"
#include "platform/linux/x11/windows/PictureWindow.h"
#include "platform/linux/x11/windows/X11Screens.h"

namespace quorvane {

/// The indicator among the windows of an X server. No window of Qt's: those cannot be placed at every pixel
/// of a dense screen.
class X11Indicator : public IndicatorSurface {
public:
    /// The connection and the screens must outlive this object.
    X11Indicator(XConnection& x, const X11Screens& screens)
        : screens_(screens)
        , native_(x, [this] { return mayBeDragged(); }) {}

    double scale() const override { return screens_.points().scale; }
    void show(const QImage& picture) override { native_.show(picture); }
    void hide() override { native_.hide(); }
    void moveTo(Point bottomLeft) override;
    void raise() override { native_.raise(); }

private:
    const X11Screens& screens_;
    PictureWindow native_;
};

} // namespace quorvane
