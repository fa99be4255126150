#include "platform/linux/preferences/ShortcutRecorder.h"

#include <algorithm>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <X11/keysym.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/localization/Localized.h"

namespace quorvane {
namespace {

using Display = RecorderBehaviour::Display;
using Role = RecorderBehaviour::Role;

constexpr int padding = 6;
constexpr int clearSide = 16;

/// Of a hint: less than a combination's, and enough to be read on any ground on which its colour can be.
constexpr double hintOpacity = 0.7;

/// A cross in the colour of the text.
class ClearButton : public QAbstractButton {
public:
    explicit ClearButton(QWidget* parent) : QAbstractButton(parent) {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        setCursor(Qt::ArrowCursor);
        setToolTip(localized("Clear shortcut"));
        setAccessibleName(localized("Clear shortcut"));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(isDown() ? 1 : underMouse() ? 0.8 : 0.5);
        painter.setPen(QPen(palette().color(QPalette::Text), 1.5, Qt::SolidLine, Qt::RoundCap));
        constexpr double reach = 3.5;
        const auto middle = QRectF(rect()).center();
        painter.drawLine(middle - QPointF(reach, reach), middle + QPointF(reach, reach));
        painter.drawLine(middle - QPointF(reach, -reach), middle + QPointF(reach, -reach));
    }
};

bool isModifier(const QKeyEvent& event) {
    const auto keysym = event.nativeVirtualKey();
    return (keysym >= XK_Shift_L && keysym <= XK_Hyper_R) || (keysym >= XK_ISO_Lock && keysym <= 0xfe13) ||
           keysym == XK_Mode_switch;
}

/// Of the key that has this meaning on most keyboards, wherever it is on this one.
Role roleOf(int key) {
    const auto keyCode = KeyNames::keyCodeOf(key);
    return keyCode ? RecorderBehaviour::roleOf(*keyCode) : Role::none;
}

} // namespace

ShortcutRecorder::ShortcutRecorder(ShortcutKeyboard& keyboard, QWidget* parent)
    : QAbstractButton(parent)
    , keyboard_(keyboard)
    , clearButton_(new ClearButton(this))
    , behaviour_({.takeKeyboard = [this] { return takeKeyboard(); },
                  .watch = [this] { return watch(); },
                  .changed = [this] { refresh(); },
                  .didEndRecording = [this] { tell(); },
                  .heldModifiers = [this] { return keyboard_.heldModifiers(); }})
    , keyboardChanges_(keyboard.changed.connect([this] { refresh(); })) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    connect(this, &QAbstractButton::clicked, this, [this] { behaviour_.press(); });
    connect(clearButton_, &QAbstractButton::clicked, this, [this] { behaviour_.clear(); });
}

void ShortcutRecorder::setPart(const ShortcutRecorderPart& part) {
    part_ = part;
    behaviour_.setRules(part.allowedModifierFlags, part.allowsEmptyModifierFlags);
    behaviour_.setObjectValue(part.objectValue, part.hasEntry);
}

bool ShortcutRecorder::takeKeyboard() {
    setFocus(Qt::OtherFocusReason);
    return true;
}

Subscription ShortcutRecorder::watch() {
    qApp->installEventFilter(this);
    return Subscription([this, taken = std::make_shared<Subscription>(keyboard_.takeKeyboard(*this))] {
        qApp->removeEventFilter(this);
        taken->end();
    });
}

void ShortcutRecorder::tell() {
    const auto part = part_; // The program may give another one meanwhile.
    if (part.didEndRecording) part.didEndRecording(part.tagid, behaviour_.objectValue());
}

bool ShortcutRecorder::event(QEvent* event) {
    const auto type = event->type();
    if (!isInUse() || (type != QEvent::ShortcutOverride && type != QEvent::KeyPress && // Tab among them.
                       type != QEvent::KeyRelease))
        return QAbstractButton::event(event);
    if (type == QEvent::ShortcutOverride)
        event->accept(); // No menu of this program's takes it either.
    else if (type == QEvent::KeyRelease)
        handleRelease(static_cast<QKeyEvent&>(*event));
    else if (!takeKey(static_cast<QKeyEvent&>(*event)))
        return QAbstractButton::event(event);
    return true;
}

/// A click elsewhere, also where it does not take the focus.
bool ShortcutRecorder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != this)
        behaviour_.end();
    return false;
}

void ShortcutRecorder::focusOutEvent(QFocusEvent* event) {
    behaviour_.end();
    QAbstractButton::focusOutEvent(event);
}

void ShortcutRecorder::hideEvent(QHideEvent* event) {
    behaviour_.end();
    QAbstractButton::hideEvent(event);
}

bool ShortcutRecorder::takeKey(const QKeyEvent& event) {
    // The event of a modifier tells what was held before it.
    if (isModifier(event)) return isInUse() && behaviour_.modifiersChanged(keyboard_.heldModifiers());
    const auto scanCode = event.nativeScanCode();
    return behaviour_.keyDown(
        {.number = scanCode,
         .keyCode = scanCode <= 0xff ? keyCodeOf(static_cast<std::uint8_t>(scanCode)) : std::nullopt,
         .role = roleOf(event.key())},
        keyboard_.modifiersOfState(event.nativeModifiers()), event.isAutoRepeat());
}

void ShortcutRecorder::handleRelease(const QKeyEvent& event) {
    if (event.isAutoRepeat()) return;
    if (isModifier(event))
        behaviour_.modifiersChanged(keyboard_.heldModifiers());
    else
        behaviour_.keyUp(event.nativeScanCode());
}

QString ShortcutRecorder::shownText() const {
    switch (behaviour_.display()) {
    case Display::prompt:
        return localized("Press the keys");
    case Display::heldModifiers:
        return ShortcutKeyboard::textOfModifiers(behaviour_.heldFlags()) + QStringLiteral("…");
    case Display::refusal:
        return localized("This key cannot be used");
    case Display::objectValue:
        break;
    }
    const auto shortcut = InputShortcut::ofRecord(behaviour_.objectValue());
    return shortcut ? keyboard_.textOf(*shortcut) : localized("Record shortcut");
}

void ShortcutRecorder::refresh() {
    setText(shownText());
    clearButton_->setVisible(behaviour_.canBeCleared());
    const bool fits = fontMetrics().horizontalAdvance(text()) <= placeOfText().width();
    const auto refusal = isMarked() ? textOfRefusal() : QString();
    setToolTip(isMarked() ? refusal : fits ? QString() : text());
    setAccessibleDescription(isMarked() ? text() + QStringLiteral(". ") + refusal : text());
    update();
    // At rest the table has the keyboard. Also where another window has the focus: this one would get it back
    // with its window.
    if (!isInUse() && parentWidget() && window()->focusWidget() == this)
        parentWidget()->setFocus(Qt::OtherFocusReason);
}

QString ShortcutRecorder::textOfRefusal() {
    return localized("This shortcut has no effect: something else uses it, or this keyboard cannot send it.");
}

int ShortcutRecorder::preferredWidth(const QFontMetrics& font) {
    constexpr auto allModifiers =
        ModifierFlag::control | ModifierFlag::option | ModifierFlag::shift | ModifierFlag::command;
    int longest =
        font.horizontalAdvance(ShortcutKeyboard::textOfModifiers(allModifiers)) + KeyNames::widestName(font);
    for (const auto& text :
         {localized("Record shortcut"), localized("Press the keys"), localized("This key cannot be used")})
        longest = std::max(longest, font.horizontalAdvance(text));
    return longest + 2 * (padding + clearSide + margin);
}

QSize ShortcutRecorder::sizeHint() const {
    constexpr int frame = 4;
    return {preferredWidth(fontMetrics()), std::max(fontMetrics().height(), clearSide) + 2 * frame};
}

QRect ShortcutRecorder::placeIn(const QRect& cell) const {
    return wideIn(cell, part_.frame.x, sizeHint().height(), sizeHint().width());
}

QRect ShortcutRecorder::placeOfText() const {
    // In the middle, and as far from either end as the button.
    const int side = clearButton_->isVisibleTo(this) ? padding + clearSide : padding;
    return rect().adjusted(side, 0, -side, 0);
}

/// Of the cross; the mark is at the other end.
QRect ShortcutRecorder::placeAtEnd() const {
    return {width() - padding / 2 - clearSide, (height() - clearSide) / 2, clearSide, clearSide};
}

void ShortcutRecorder::resizeEvent(QResizeEvent* /*event*/) {
    clearButton_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), placeAtEnd()));
    refresh();
}

void ShortcutRecorder::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect = rect();
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
    frame.state |= QStyle::State_Sunken;
    const bool isRecording = behaviour_.isRecording();
    frame.state.setFlag(QStyle::State_HasFocus, isRecording);
    if (!isRecording) frame.palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
    if (isMarked()) {
        const auto mark = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
        auto place = placeAtEnd();
        place.moveLeft(padding / 2);
        mark.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), place));
    }
    const bool isHint =
        isRecording ? behaviour_.display() != Display::heldModifiers : behaviour_.objectValue().isNothing();
    painter.setOpacity(isHint ? hintOpacity : 1);
    painter.setPen(palette().color(QPalette::Text));
    const auto place = placeOfText();
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

} // namespace quorvane
