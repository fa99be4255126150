#include "platform/linux/qt/MainWindow.h"

#include <algorithm>

#include <QApplication>

namespace quorvane {

QWidget* mainWindow() {
    if (auto* active = QApplication::activeWindow()) return active;
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [](const QWidget* window) {
        // The tray's item is a window without a frame, and so are menus and tool tips.
        return window->isVisible() && window->windowType() == Qt::Window &&
               !window->windowFlags().testFlag(Qt::FramelessWindowHint);
    });
    return found == windows.end() ? nullptr : *found;
}

} // namespace quorvane
