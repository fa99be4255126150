#include "platform/linux/qt/MainWindow.h"

#include <algorithm>

#include <QApplication>

namespace quorvane {

std::vector<QWidget*> openWindows() {
    std::vector<QWidget*> open;
    for (auto* window : QApplication::topLevelWidgets()) {
        const bool isWindow = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
        // The tray's item is a window without a frame.
        if (window->isVisible() && isWindow && !window->windowFlags().testFlag(Qt::FramelessWindowHint))
            open.push_back(window);
    }
    return open;
}

QWidget* mainWindow() {
    if (auto* active = QApplication::activeWindow()) return active;
    const auto windows = openWindows();
    const auto found = std::ranges::find(windows, Qt::Window, &QWidget::windowType);
    return found == windows.end() ? nullptr : *found;
}

} // namespace quorvane
