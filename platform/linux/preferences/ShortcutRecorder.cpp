#include "platform/linux/preferences/ShortcutRecorder.h"

#include <algorithm>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <X11/keysym.h>

#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/localization/Localized.h"

namespace quorvane {
namespace {

constexpr int padding = 6;
constexpr int clearSide = 16;

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

} // namespace

ShortcutRecorder::ShortcutRecorder(ShortcutKeyboard& keyboard, QWidget* parent)
    : QAbstractButton(parent)
    , keyboard_(keyboard)
    , clearButton_(new ClearButton(this))
    , keyboardChanges_(keyboard.changed.connect([this] { refresh(); })) {
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    connect(this, &QAbstractButton::clicked, this, &ShortcutRecorder::toggle);
    connect(clearButton_, &QAbstractButton::clicked, this, &ShortcutRecorder::clear);
}

ShortcutRecorder::~ShortcutRecorder() {
    if (recording_.state() != State::idle) releaseKeyboard();
}

void ShortcutRecorder::setPart(const ShortcutRecorderPart& part) {
    part_ = part;
    recording_.setRules(part.allowedModifierFlags, part.allowsEmptyModifierFlags);
    refresh();
}

void ShortcutRecorder::toggle() {
    if (recording_.state() == State::recording)
        end();
    else
        begin();
}

void ShortcutRecorder::begin() {
    recording_.begin(keyboard_.heldFlags());
    setFocus(Qt::OtherFocusReason);
    grabKeyboard();
    qApp->installEventFilter(this);
    refresh();
}

void ShortcutRecorder::end() {
    if (!isInUse()) return;
    recording_.end();
    qApp->removeEventFilter(this);
    releaseKeyboard();
    // Also where another window has the focus: this one would get it back with its window.
    if (parentWidget() && window()->focusWidget() == this) parentWidget()->setFocus(Qt::OtherFocusReason);
    refresh();
}

bool ShortcutRecorder::event(QEvent* event) {
    if (!isInUse()) return QAbstractButton::event(event);
    switch (event->type()) {
    case QEvent::ShortcutOverride: // No menu of this program's takes it either.
        event->accept();
        return true;
    case QEvent::KeyPress: // Tab among them.
        handlePress(static_cast<QKeyEvent&>(*event));
        return true;
    case QEvent::KeyRelease:
        handleRelease(static_cast<QKeyEvent&>(*event));
        return true;
    default:
        return QAbstractButton::event(event);
    }
}

/// A click elsewhere, also where it does not take the focus.
bool ShortcutRecorder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != this) end();
    return false;
}

void ShortcutRecorder::focusOutEvent(QFocusEvent* event) {
    end();
    QAbstractButton::focusOutEvent(event);
}

void ShortcutRecorder::hideEvent(QHideEvent* event) {
    end();
    QAbstractButton::hideEvent(event);
}

void ShortcutRecorder::handlePress(const QKeyEvent& event) {
    if (recording_.state() != State::recording || event.isAutoRepeat()) return;
    if (isModifier(event)) {
        handleModifiers();
        return;
    }
    const auto scanCode = event.nativeScanCode();
    const auto recorded = recording_.press(
        {.key = scanCode,
         .keyCode = scanCode <= 0xff ? keyCodeOf(static_cast<std::uint8_t>(scanCode)) : std::nullopt,
         .modifierFlags = keyboard_.flagsOfState(event.nativeModifiers()),
         .meaning = event.key() == Qt::Key_Escape ? Meaning::leavesAsItWas : Meaning::recorded});
    refresh();
    if (recorded) tell(*recorded);
}

void ShortcutRecorder::handleRelease(const QKeyEvent& event) {
    if (event.isAutoRepeat()) return;
    if (recording_.isOverWithRelease(event.nativeScanCode()))
        end();
    else if (recording_.state() == State::recording && isModifier(event))
        handleModifiers();
}

/// The event tells what was held before it.
void ShortcutRecorder::handleModifiers() {
    recording_.holdModifiers(keyboard_.heldFlags());
    refresh();
}

void ShortcutRecorder::clear() {
    if (!isInUse() && !isEmpty()) tell({});
}

void ShortcutRecorder::tell(const PropertyList& objectValue) {
    part_.objectValue = objectValue;
    refresh();
    const auto part = part_; // The program may give another one meanwhile.
    if (part.didEndRecording) part.didEndRecording(part.tagid, objectValue);
}

void ShortcutRecorder::refresh() {
    const auto shortcut = InputShortcut::ofRecord(part_.objectValue);
    switch (recording_.display()) {
    case Display::objectValue:
        setText(shortcut ? keyboard_.textOf(*shortcut) : localized("Record shortcut"));
        break;
    case Display::prompt:
        setText(localized("Press the keys"));
        break;
    case Display::heldModifiers:
        setText(keyboard_.textOfModifiers(recording_.heldFlags()) + QStringLiteral("…"));
        break;
    case Display::refusal:
        setText(localized("This key cannot be used"));
        break;
    }
    setAccessibleDescription(text());
    clearButton_->setVisible(shortcut && !isInUse());
    const bool fits = fontMetrics().horizontalAdvance(text()) <= placeOfText().width();
    setToolTip(fits ? QString() : text());
    update();
}

int ShortcutRecorder::preferredWidth(const QFontMetrics& font) {
    int longest = font.horizontalAdvance(QStringLiteral("Ctrl+Alt+Shift+Super+M"));
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
    return wideIn(cell, part_.frame.x, sizeHint().height());
}

QRect ShortcutRecorder::placeOfText() const {
    // In the middle, and as far from either end as the button.
    const int side = clearButton_->isVisibleTo(this) ? padding + clearSide : padding;
    return rect().adjusted(side, 0, -side, 0);
}

void ShortcutRecorder::resizeEvent(QResizeEvent* /*event*/) {
    const QRect place(width() - padding / 2 - clearSide, (height() - clearSide) / 2, clearSide, clearSide);
    clearButton_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    refresh();
}

void ShortcutRecorder::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect = rect();
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
    frame.state |= QStyle::State_Sunken;
    const bool isRecording = recording_.state() == State::recording;
    frame.state.setFlag(QStyle::State_HasFocus, isRecording);
    if (!isRecording) frame.palette.setBrush(QPalette::Base, palette().brush(QPalette::Window));
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
    const bool isHint = isRecording ? recording_.display() != Display::heldModifiers : isEmpty();
    painter.setPen(palette().color(isHint ? QPalette::PlaceholderText : QPalette::Text));
    const auto place = placeOfText();
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

} // namespace quorvane
