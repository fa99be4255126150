#pragma once

#include <algorithm>

#include <QKeyEvent>
#include <QWidget>

namespace quorvane {

/// A widget that stands in a cell. The table has the keyboard focus in its stead and tells it of keys.
class CellControl {
public:
    virtual ~CellControl() = default;

    virtual QWidget& widget() = 0;

    /// Where it stands in a cell, with what is left around it for the frame of the current cell.
    virtual QRect placeIn(const QRect& cell) const = 0;

    virtual void act() = 0; ///< Does what a click on it does.

    /// A key that means something else to it than to other cells. Whether it does.
    virtual bool takeKey(const QKeyEvent& /*event*/) { return false; }

    /// Whether the user is in the midst of something that ends when it gets another cell.
    virtual bool isInUse() const { return false; }
    virtual void endUse() {}

protected:
    static constexpr int margin = 2;

    /// As wide as the cell from this place on, up to a width that still looks like one control.
    static QRect wideIn(const QRect& cell, double left, int height, int widest = 320) {
        const QRect room = cell.adjusted(static_cast<int>(left) + margin, 1, -margin, -1);
        const int used = std::min(height, room.height());
        return {room.x(), room.y() + (room.height() - used) / 2, std::min(room.width(), widest), used};
    }
};

} // namespace quorvane
