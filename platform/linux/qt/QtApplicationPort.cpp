#include "platform/linux/qt/QtApplicationPort.h"

#include <QApplication>
#include <QWidget>

namespace quorvane {

std::string QtApplicationPort::localizedString(std::string_view key) const {
    return QCoreApplication::translate("Quorvane", std::string(key).c_str()).toStdString();
}

std::string QtApplicationPort::shortVersion() const {
    return QCoreApplication::applicationVersion().toStdString();
}

void QtApplicationPort::activateIgnoringOtherApps() {
    for (auto* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus)) continue;
        window->raise();
        window->activateWindow();
    }
}

void QtApplicationPort::terminate() {
    // Not `quit`, which closes the windows first: the program does other things when the user closes one.
    QCoreApplication::exit();
}

} // namespace quorvane
