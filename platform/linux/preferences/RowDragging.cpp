#include "platform/linux/preferences/RowDragging.h"

#include <utility>

#include <QApplication>
#include <QMouseEvent>
#include <QTableView>

namespace quorvane {

void RowDragging::pressed(const QMouseEvent& event) {
    pressedAt_ = event.position().toPoint();
    const bool isGrip = isAllowed_ && event.button() == Qt::LeftButton;
    pressedRow_ = isGrip ? table_.rowAt(pressedAt_.y()) : noRow;
}

bool RowDragging::moved(const QMouseEvent& event) {
    if (pressedRow_ == noRow) return false;
    const auto position = event.position().toPoint();
    const bool isFarEnough = (position - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!drag_ && isFarEnough && pressedRow_ < table_.model()->rowCount())
        drag_ = std::make_unique<RowDrag>(table_, pressedRow_, pressedAt_);
    if (drag_) drag_->moveTo(position);
    return true;
}

std::optional<RowDragging::Drop> RowDragging::released(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return std::nullopt;
    pressedRow_ = noRow;
    const auto drag = std::move(drag_);
    if (!drag) return std::nullopt;
    drag->moveTo(event.position().toPoint());
    return Drop{drag->row(), drag->gap()};
}

bool RowDragging::giveUp() {
    pressedRow_ = noRow;
    return std::exchange(drag_, nullptr) != nullptr;
}

void RowDragging::rowsChanged(int rowCount) {
    if (drag_ && drag_->row() >= rowCount) drag_.reset();
}

} // namespace quorvane
