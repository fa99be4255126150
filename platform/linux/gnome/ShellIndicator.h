#pragma once

#include "platform/linux/gnome/GnomeShell.h"
#include "platform/linux/qt/IndicatorSurface.h"

namespace quorvane {

/// The indicator as an actor of GNOME Shell, which also drags it.
class ShellIndicator : public IndicatorSurface {
public:
    /// Needs a QGuiApplication. The shell must outlive this object.
    explicit ShellIndicator(GnomeShell& shell);

    double scale() const override;
    void show(const QImage& picture) override;
    void hide() override;
    void moveTo(Point bottomLeft) override;
    void raise() override {} ///< It is above all windows.

private:
    void showNow();
    QPoint place() const;

    GnomeShell& shell_;
    QImage picture_; ///< Null while it is hidden.
    Point bottomLeft_;
    Subscription starts_;
};

} // namespace quorvane
