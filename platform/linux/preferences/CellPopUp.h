#pragma once

#include "platform/CellView.h"
#include "platform/linux/preferences/CellControl.h"
#include "platform/linux/preferences/StillComboBox.h"

namespace quorvane {

/// A pop-up button in a cell.
class CellPopUp : public StillComboBox, public CellControl {
    Q_OBJECT

public:
    explicit CellPopUp(QWidget* parent);

    /// An open menu stays open.
    void setPart(const PopUpButtonPart& part);

    /// The width in which all items can be read, within reason.
    static int preferredWidth(const PopUpButtonPart& part, const QFontMetrics& font);

    QWidget& widget() override { return *this; }
    QRect placeIn(const QRect& cell) const override;
    void act() override { showPopup(); }
    bool isInUse() const override { return isOpen_; }
    void endUse() override { hidePopup(); }

    void showPopup() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setTitles();
    void choose(int item);
    int roomForText() const;

    PopUpButtonPart part_;
    bool isOpen_ = false;
    bool isAnnounced_ = false; ///< The program knows that the menu has opened.
};

} // namespace quorvane
