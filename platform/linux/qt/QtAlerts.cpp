#include "platform/linux/qt/QtAlerts.h"

#include <algorithm>

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

namespace quorvane {
namespace {

constexpr int iconSize = 48;

// The message stands out, and the text below it is wide enough to be read at a glance.
constexpr const char* lookOfTexts = "QLabel#qt_msgbox_label { font-weight: bold; }"
                                    "QLabel#qt_msgbox_informativelabel { min-width: 26em; }";

} // namespace

AlertAnswer QtAlerts::runModal(const Alert& alert) {
    QMessageBox box;
    box.setWindowTitle(QApplication::applicationName());
    box.setIconPixmap(QApplication::windowIcon().pixmap(iconSize));
    box.setText(QString::fromStdString(alert.messageText));
    box.setStyleSheet(QString::fromLatin1(lookOfTexts));
    box.setInformativeText(QString::fromStdString(alert.informativeText));
    // The agent has no other window that would bring the alert to the user's eyes.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);

    QList<QAbstractButton*> buttons;
    for (const auto& title : alert.buttons) {
        const auto role = buttons.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        buttons.append(box.addButton(QString::fromStdString(title), role));
    }
    if (!buttons.isEmpty()) {
        box.setDefaultButton(qobject_cast<QPushButton*>(buttons.first()));
        box.setEscapeButton(buttons.last());
    }
    if (!alert.suppressionButtonTitle.empty()) {
        box.setCheckBox(new QCheckBox(QString::fromStdString(alert.suppressionButtonTitle), &box));
    }
    box.exec();

    // Ended from outside, for instance when the program is told to quit, the alert has no clicked button.
    const auto clicked = buttons.indexOf(box.clickedButton());
    const auto answered = clicked >= 0 ? clicked : buttons.size() - 1;
    return {.response = alertFirstButtonReturn + static_cast<int>(answered),
            .suppressionButtonIsOn = box.checkBox() && box.checkBox()->isChecked()};
}

} // namespace quorvane
