#include "platform/linux/qt/QtIndicatorWindow.h"

#include <QColor>

#include "platform/linux/qt/QtImage.h"

namespace quorvane {

QtIndicatorWindow::QtIndicatorWindow(IndicatorSurface& surface) : surface_(surface) {
    surface_.mayBeDragged = [this] {
        return style_.isMovableByWindowBackground && iconView_.mouseDownCanMoveWindow();
    };
    changed_.setSingleShot(true);
    QObject::connect(&changed_, &QTimer::timeout, &changed_, [this] { update(); });
}

// Whatever the level, the window is above everything and on all workspaces: so are all windows that a window
// manager does not manage. If it did, this one would be listed among the programs and could get the focus.
void QtIndicatorWindow::setStyle(const WindowStyle& style) {
    style_ = style;
    changed_.start();
}

void QtIndicatorWindow::setFrameOrigin(Point origin) {
    surface_.moveTo(origin);
}

void QtIndicatorWindow::makeKeyAndOrderFront() {
    isOrderedIn_ = true;
    changed_.start();
    raise();
}

void QtIndicatorWindow::orderOut() {
    isOrderedIn_ = false;
    changed_.start();
}

void QtIndicatorWindow::setDark(bool isDark) {
    isDark_ = isDark;
    changed_.start();
}

void QtIndicatorWindow::update() {
    const auto icon = isIconHidden_ ? QImage() : icon_;
    if (!isOrderedIn_ || (icon.isNull() && isBoxHidden_)) {
        surface_.hide();
        return;
    }
    const QColor ground = style_.hasClearBackground ? Qt::transparent : Qt::white;
    const auto box = isBoxHidden_ ? IndicatorBox::none : isDark_ ? IndicatorBox::dark : IndicatorBox::light;
    surface_.show(drawIndicator(icon, box, ground, surface_.scale()));
}

void QtIndicatorWindow::IconView::setHidden(bool hidden) {
    window_.isIconHidden_ = hidden;
    window_.changed_.start();
}

void QtIndicatorWindow::IconView::setImage(ImageRef image) {
    window_.icon_ = QtImage::unwrapped(image);
    window_.changed_.start();
}

void QtIndicatorWindow::IconBox::setHidden(bool hidden) {
    window_.isBoxHidden_ = hidden;
    window_.changed_.start();
}

} // namespace quorvane
