#include "platform/linux/preferences/CellCheckBox.h"

#include <QStyleOptionButton>

#include "platform/Widgets.h"

namespace quorvane {

CellCheckBox::CellCheckBox(QWidget* parent) : QCheckBox(parent) {
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QCheckBox::clicked, this, [this](bool isOn) {
        const auto action = part_.action; // The program may give another one meanwhile.
        if (action) action(part_.tag, isOn ? stateOn : stateOff);
    });
}

void CellCheckBox::setPart(const CheckBoxPart& part) {
    part_ = part;
    setChecked(part.state != stateOff);
}

QRect CellCheckBox::placeIn(const QRect& cell) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    // Its own size has room for a text.
    QRect place(QPoint(), style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this).size());
    place.moveCenter(cell.center());
    return place;
}

} // namespace quorvane
