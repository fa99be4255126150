#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace quorvane {

/// A pop-up button that the mouse's wheel does not change: who scrolls past it chooses nothing.
class StillComboBox : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace quorvane
