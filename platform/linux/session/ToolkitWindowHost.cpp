#include "platform/linux/session/ToolkitWindowHost.h"

namespace quorvane {

void ToolkitWindowHost::bringToUser(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace quorvane
