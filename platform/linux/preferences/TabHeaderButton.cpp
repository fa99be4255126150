#include "platform/linux/preferences/TabHeaderButton.h"

#include <algorithm>

#include <QFocusEvent>
#include <QPainter>

namespace quorvane {
namespace {

constexpr int iconSide = 24;
constexpr int smallestWidth = 76;
constexpr int titleSideMargin = 10;
constexpr int topMargin = 6;
constexpr int gap = 3; // between picture and name
constexpr int cornerRadius = 6;
constexpr double shade = 0.3;
constexpr double shadeUnderMouse = 0.12;

} // namespace

TabHeaderButton::TabHeaderButton(QWidget* parent) : QAbstractButton(parent) {
    setIconSize({iconSide, iconSide});
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TabHeaderButton::sizeHint() const {
    const int textWidth = fontMetrics().horizontalAdvance(text());
    return {std::max(smallestWidth, textWidth + 2 * titleSideMargin),
            topMargin + iconSide + gap + fontMetrics().height() + topMargin};
}

void TabHeaderButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked() || isDown() || underMouse()) {
        QColor grey(Qt::gray);
        grey.setAlphaF(float(isChecked() || isDown() ? shade : shadeUnderMouse));
        painter.setPen(Qt::NoPen);
        painter.setBrush(grey);
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }

    const QRect picture((width() - iconSide) / 2, topMargin, iconSide, iconSide);
    icon().paint(&painter, picture);
    const QRect name(0, picture.bottom() + gap, width(), fontMetrics().height());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(name, Qt::AlignCenter | Qt::TextShowMnemonic, text());

    if (hasFocus() && isReachedByKey_) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
    }
}

void TabHeaderButton::focusInEvent(QFocusEvent* event) {
    const auto reason = event->reason();
    isReachedByKey_ =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::OtherFocusReason;
    QAbstractButton::focusInEvent(event);
}

} // namespace quorvane
