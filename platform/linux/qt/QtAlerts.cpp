#include "platform/linux/qt/QtAlerts.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>

#include "platform/linux/qt/MainWindow.h"

namespace quorvane {
namespace {

constexpr int alertIconSize = 48;

// The message stands out, and the text below it is wide enough to be read at a glance.
constexpr const char* lookOfTexts = "QLabel#qt_msgbox_label { font-weight: bold; }"
                                    "QLabel#qt_msgbox_informativelabel { min-width: 26em; }";

/// A message box that shows an alert, and reads the answer from it.
class AlertBox : public QMessageBox {
public:
    AlertBox(WindowHost& host, const Alert& alert, QWidget* parent) : QMessageBox(parent), host_(host) {
        // Minimised, it would block the program where nobody sees why.
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
        setWindowTitle(QApplication::applicationName());
        setIconPixmap(QApplication::windowIcon().pixmap(alertIconSize));
        setText(QString::fromStdString(alert.messageText));
        setStyleSheet(QString::fromLatin1(lookOfTexts));
        setInformativeText(QString::fromStdString(alert.informativeText));
        for (const auto& title : alert.buttons) {
            const auto role = buttons_.isEmpty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
            buttons_.append(addButton(QString::fromStdString(title), role));
        }
        if (!buttons_.isEmpty()) {
            setDefaultButton(qobject_cast<QPushButton*>(buttons_.first()));
            setEscapeButton(buttons_.last());
        }
        if (!alert.suppressionButtonTitle.empty())
            setCheckBox(new QCheckBox(QString::fromStdString(alert.suppressionButtonTitle), this));
    }

    AlertAnswer answer() const {
        return {.response = alertResponse(buttons_.indexOf(clickedButton()), buttons_.size()),
                .suppressionButtonIsOn = checkBox() && checkBox()->isChecked()};
    }

protected:
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        // A window manager may keep the focus where it is when a window opens unasked.
        if (!event->spontaneous())
            QMetaObject::invokeMethod(
                this, [this] { host_.bringToUser(*this); }, Qt::QueuedConnection);
    }

private:
    WindowHost& host_;
    QList<QAbstractButton*> buttons_;
};

} // namespace

AlertAnswer QtAlerts::runModal(const Alert& alert) {
    AlertBox box(host_, alert, nullptr);
    // The agent has no other window that would bring the alert to the user's eyes.
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    box.exec();
    return box.answer();
}

void QtAlerts::beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) {
    auto* box = new AlertBox(host_, alert, mainWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QDialog::finished, box,
                     [box, completion = std::move(completion)] { completion(box->answer()); });
    box->open();
}

} // namespace quorvane
