#include "platform/linux/qt/QtApplicationPort.h"

#include <algorithm>

#include <QApplication>

#include "platform/linux/qt/MainWindow.h"

namespace quorvane {

std::string QtApplicationPort::localizedString(std::string_view key) const {
    return QCoreApplication::translate("Quorvane", std::string(key).c_str()).toStdString();
}

std::string QtApplicationPort::shortVersion() const {
    return QCoreApplication::applicationVersion().toStdString();
}

void QtApplicationPort::activateIgnoringOtherApps() {
    auto windows = openWindows();
    // What is to be answered first comes last, above the others and with the focus.
    std::stable_partition(windows.begin(), windows.end(),
                          [](const QWidget* window) { return !window->isModal(); });
    for (auto* window : windows)
        host_.bringToUser(*window);
}

void QtApplicationPort::terminate() {
    // Not `quit`, which closes the windows first: the program does other things when the user closes one.
    QCoreApplication::exit();
}

} // namespace quorvane
