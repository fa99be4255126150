#include "platform/linux/qt/QtIndicatorWindow.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int windowSize = 20; // points: an icon of 18 on its box, and it fits into the corner it starts in

} // namespace

QtIndicatorWindow::QtIndicatorWindow() : box_(new QFrame(&widget_)), icon_(new QLabel(&widget_)) {
    widget_.setFixedSize(windowSize, windowSize);
    box_->setGeometry(widget_.rect());
    box_->setStyleSheet(QStringLiteral("background: #f4f4f6; border: 1px solid #8a8f99;"));
    icon_->setGeometry(widget_.rect());
    icon_->setAlignment(Qt::AlignCenter);
    box_->hide();
    icon_->hide();
}

void QtIndicatorWindow::setStyle(const WindowStyle& style) {
    // Left to the window manager, the window would be listed among the programs and could get the focus.
    widget_.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint);
    widget_.setAttribute(Qt::WA_ShowWithoutActivating);
    widget_.setAttribute(Qt::WA_TranslucentBackground, style.hasClearBackground);
}

void QtIndicatorWindow::setFrameOrigin(Point origin) {
    const auto* primary = QGuiApplication::primaryScreen();
    const auto height = primary ? primary->geometry().height() : 0;
    widget_.move(static_cast<int>(origin.x), height - static_cast<int>(origin.y) - widget_.height());
}

void QtIndicatorWindow::showIfSeen() {
    widget_.setVisible(!icon_->isHidden() || !box_->isHidden());
}

void QtIndicatorWindow::IconView::setHidden(bool hidden) {
    window_.icon_->setHidden(hidden);
    window_.showIfSeen();
}

void QtIndicatorWindow::IconView::setImage(ImageRef image) {
    window_.icon_->setPixmap(QPixmap::fromImage(QtImage::unwrapped(image)));
}

void QtIndicatorWindow::IconBox::setHidden(bool hidden) {
    window_.box_->setHidden(hidden);
    window_.showIfSeen();
}

} // namespace quorvane
