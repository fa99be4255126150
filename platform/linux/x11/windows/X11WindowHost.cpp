#include "platform/linux/x11/windows/X11WindowHost.h"

#include <QGuiApplication>

#include "platform/linux/x11/windows/WindowManagerRequests.h"

namespace quorvane {
namespace {

/// Null on a platform that is not X11's.
xcb_connection_t* connectionOfToolkit() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

} // namespace

void X11WindowHost::bringToUser(QWidget& window) {
    // All by the toolkit's own connection: a window manager would overlook what it is asked of a window that
    // it has not yet seen mapped.
    auto* sender = connectionOfToolkit();
    const auto desktop = shownDesktop(x_);
    const auto bringToDesktop = [&] {
        const auto id = static_cast<xcb_window_t>(window.winId());
        if (desktop && !isOnAllDesktops(x_, id))
            askWindowManager(sender, x_, id, "_NET_WM_DESKTOP", *desktop, sourceIsUser);
    };

    // Before it is restored or raised, which could take the user to the window instead.
    if (sender && window.isVisible()) bringToDesktop();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
    if (!sender) return;
    // A window may come back to the workspace it was closed on, and a manager that guards the focus gives it
    // only to what the user asks for.
    bringToDesktop();
    askWindowManager(sender, x_, static_cast<xcb_window_t>(window.winId()), "_NET_ACTIVE_WINDOW",
                     sourceIsUser, XCB_CURRENT_TIME);
    xcb_flush(sender);
}

Subscription X11WindowHost::takeKeyboard(QWidget& widget) {
    widget.grabKeyboard();
    return Subscription([&widget] { widget.releaseKeyboard(); });
}

void X11WindowHost::keepAboveOthers(QWidget& window, bool above) {
    quorvane::keepAboveOthers(x_, static_cast<xcb_window_t>(window.winId()), above);
}

void X11WindowHost::showOnAllDesktops(QWidget& window, bool all) {
    quorvane::showOnAllDesktops(x_, static_cast<xcb_window_t>(window.winId()), all);
}

} // namespace quorvane
