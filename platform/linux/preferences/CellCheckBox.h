#pragma once

#include <QCheckBox>

#include "platform/CellView.h"
#include "platform/linux/preferences/CellControl.h"

namespace quorvane {

/// A check box in the middle of a cell. It shows what was clicked, whatever the program makes of it.
class CellCheckBox : public QCheckBox, public CellControl {
    Q_OBJECT

public:
    explicit CellCheckBox(QWidget* parent);

    void setPart(const CheckBoxPart& part);

    QWidget& widget() override { return *this; }
    QRect placeIn(const QRect& cell) const override;
    void act() override { click(); }

private:
    CheckBoxPart part_;
};

} // namespace quorvane
