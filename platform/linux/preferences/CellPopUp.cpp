#include "platform/linux/preferences/CellPopUp.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStylePainter>
#include <QToolTip>

#include "platform/linux/qt/PlainText.h"

namespace quorvane {
namespace {

constexpr int narrowest = 150;
constexpr int widest = 260;
constexpr int arrowAndFrame = 48;

QString textOf(const std::string& title) {
    return QString::fromStdString(title);
}

} // namespace

CellPopUp::CellPopUp(QWidget* parent) : StillComboBox(parent) {
    setFocusPolicy(Qt::NoFocus);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(1);
    connect(this, &QComboBox::activated, this, &CellPopUp::choose);
}

void CellPopUp::setPart(const PopUpButtonPart& part) {
    part_ = part;
    setFrame(part_.isBordered);
    setTitles();
    setCurrentIndex(part_.selectedItem());
}

/// One by one, since an open menu closes when it is emptied.
void CellPopUp::setTitles() {
    const auto wanted = static_cast<int>(part_.itemTitles.size());
    while (count() > wanted)
        removeItem(count() - 1);
    for (int item = 0; item < wanted; ++item) {
        const auto text = textOf(part_.itemTitles[static_cast<std::size_t>(item)]);
        if (item >= count())
            addItem(text);
        else if (itemText(item) != text)
            setItemText(item, text);
    }
}

int CellPopUp::preferredWidth(const PopUpButtonPart& part, const QFontMetrics& font) {
    int longest = 0;
    for (const auto& title : part.itemTitles)
        longest = std::max(longest, font.horizontalAdvance(textOf(title)));
    return std::clamp(longest + arrowAndFrame, narrowest, widest);
}

QRect CellPopUp::placeIn(const QRect& cell) const {
    return wideIn(cell, part_.frame.x, sizeHint().height());
}

void CellPopUp::showPopup() {
    isAnnounced_ = true;
    if (const auto willPopUp = part_.willPopUp) willPopUp(part_.tag);
    auto* list = view();
    list->installEventFilter(this);
    const int longest = list->sizeHintForColumn(0) + list->verticalScrollBar()->sizeHint().width();
    list->setMinimumWidth(std::min(longest, screen()->availableGeometry().width() / 2));
    QComboBox::showPopup();
    isOpen_ = list->isVisible();
}

bool CellPopUp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        isOpen_ = false;
        // The item that was clicked is told of after the menu has closed.
        QMetaObject::invokeMethod(
            this, [this] { isAnnounced_ = isOpen_; }, Qt::QueuedConnection);
    }
    return QComboBox::eventFilter(watched, event);
}

void CellPopUp::choose(int item) {
    const auto part = part_; // The program may give another one meanwhile.
    if (!isAnnounced_ && part.willPopUp) part.willPopUp(part.tag);
    part.choose(item);
}

int CellPopUp::roomForText() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    constexpr int around = 4;
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width() -
           around;
}

bool CellPopUp::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QComboBox::event(event);
    const bool fits = fontMetrics().horizontalAdvance(currentText()) <= roomForText();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       fits ? QString() : toolTipOf(currentText()), this);
    return true;
}

void CellPopUp::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideRight, roomForText());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace quorvane
