#pragma once

#include <QAbstractButton>

#include "platform/Widgets.h"

namespace quorvane {

/// A picture above a name; clicked, it brings a tab to the front. The arrow keys move between the headers of
/// a window. Its shade is its checked state.
class TabHeaderButton : public QAbstractButton, public TabHeader {
public:
    explicit TabHeaderButton(QWidget* parent = nullptr);

    void setShaded(bool shaded) override { setChecked(shaded); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    bool isReachedByKey_ = false; ///< Only then does it have a ring while it has the focus.
};

} // namespace quorvane
