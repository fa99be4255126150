#include "platform/linux/preferences/QtPreferencesWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

#include "platform/linux/x11/windows/WindowManagerRequests.h"

namespace quorvane {
namespace {

constexpr double titleScale = 1.4; // of the usual text's size

/// The shape filled with the colour that the palette has for texts on buttons.
QIcon inColour(const QIcon& shape, QSize size, double scale, const QPalette& palette) {
    QIcon coloured;
    for (const auto mode : {QIcon::Normal, QIcon::Disabled}) {
        auto pixmap = shape.pixmap(size, scale);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter.fillRect(pixmap.rect(), palette.color(group, QPalette::ButtonText));
        painter.end();
        coloured.addPixmap(pixmap, mode);
    }
    return coloured;
}

} // namespace

QtPreferencesWindow::QtPreferencesWindow(WindowHost& host, NotificationCenter& notifications)
    : host_(host)
    , notifications_(notifications) {
    auto* closeKey = new QShortcut(QKeySequence(QKeySequence::Close), this);
    connect(closeKey, &QShortcut::activated, this, &QWidget::close);
}

void QtPreferencesWindow::setStyle(const WindowStyle& style) {
    setLevel(style.level);
    setCollectionBehavior(style.collectionBehavior);
    setMovableByWindowBackground(style.isMovableByWindowBackground);
}

void QtPreferencesWindow::setLevel(int level) {
    if (isVisible()) host_.keepAboveOthers(*this, level > 0);
}

void QtPreferencesWindow::setCollectionBehavior(unsigned behavior) {
    if (isVisible()) host_.showOnAllDesktops(*this, behavior != 0);
}

void QtPreferencesWindow::setFrameOrigin(Point origin) {
    move(static_cast<int>(origin.x), screen()->geometry().height() - static_cast<int>(origin.y) - height());
}

void QtPreferencesWindow::makeKeyAndOrderFront() {
    if (!isVisible()) fitScreen();
    host_.bringToUser(*this);
}

/// Before it opens: never larger than what the screen has room for, frame and all.
void QtPreferencesWindow::fitScreen() {
    constexpr QSize frame(16, 48); // about that of most window managers
    const auto* pointed = QGuiApplication::screenAt(QCursor::pos());
    const auto room = (pointed ? pointed : screen())->availableGeometry().size() - frame;
    resize(size().boundedTo(room));
}

void QtPreferencesWindow::dressUp() {
    for (auto* label : findChildren<QLabel*>()) {
        if (label->property("isSecondary").toBool()) label->setForegroundRole(QPalette::PlaceholderText);
        if (!label->property("isTitle").toBool()) continue;
        auto font = label->font();
        font.setPointSizeF(font.pointSizeF() * titleScale);
        label->setFont(font);
    }
    applyPalette();
}

void QtPreferencesWindow::applyPalette() {
    for (auto* button : findChildren<QAbstractButton*>()) {
        const auto file = button->property("templateIcon").toString();
        if (!file.isEmpty())
            button->setIcon(inColour(QIcon(file), button->iconSize(), devicePixelRatio(), palette()));
    }
    for (auto* button : findChildren<QPushButton*>()) {
        if (!button->isFlat() || !button->property("linkAction").isValid()) continue;
        auto colours = palette();
        colours.setBrush(QPalette::ButtonText, colours.link());
        button->setPalette(colours);
    }
}

void QtPreferencesWindow::closeEvent(QCloseEvent* event) {
    notifications_.post({std::string(windowWillCloseNotification), this});
    event->accept();
}

// Whatever is in the window takes its own presses: what arrives here was meant for the background.
void QtPreferencesWindow::mousePressEvent(QMouseEvent* event) {
    if (isMovableByBackground_ && event->button() == Qt::LeftButton) pressedAt_ = event->position().toPoint();
}

// Not at the press: a window manager that hears of the move after the button was released goes on moving the
// window until the next click.
void QtPreferencesWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!pressedAt_) return;
    const auto moved = event->position().toPoint() - *pressedAt_;
    if (moved.manhattanLength() < QApplication::startDragDistance()) return;
    pressedAt_.reset();
    windowHandle()->startSystemMove();
}

void QtPreferencesWindow::mouseReleaseEvent(QMouseEvent* /*event*/) {
    pressedAt_.reset();
}

void QtPreferencesWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) applyPalette();
    QMainWindow::changeEvent(event);
}

} // namespace quorvane
