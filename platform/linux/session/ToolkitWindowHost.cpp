#include "platform/linux/session/ToolkitWindowHost.h"

#include <QWindow>

namespace quorvane {

void ToolkitWindowHost::bringToUser(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

Subscription ToolkitWindowHost::takeKeyboard(QWidget& widget) {
    auto* window = widget.window()->windowHandle();
    return window ? shortcuts_.inhibit(*window) : Subscription();
}

} // namespace quorvane
