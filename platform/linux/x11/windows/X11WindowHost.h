#pragma once

#include "platform/linux/qt/WindowHost.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Asks the window manager.
class X11WindowHost : public WindowHost {
public:
    explicit X11WindowHost(XConnection& x) : x_(x) {}

    void bringToUser(QWidget& window) override;
    Subscription takeKeyboard(QWidget& widget) override;
    void keepAboveOthers(QWidget& window, bool above) override;
    void showOnAllDesktops(QWidget& window, bool all) override;

private:
    XConnection& x_;
};

} // namespace quorvane
