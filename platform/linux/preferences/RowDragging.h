#pragma once

#include <memory>
#include <optional>

#include <QPoint>

#include "platform/Widgets.h"
#include "platform/linux/preferences/RowDrag.h"

class QMouseEvent;

namespace quorvane {

/// Tells from what the mouse does in a table when a row of it is dragged, and where it is dropped.
class RowDragging {
public:
    /// The table must outlive this object.
    explicit RowDragging(QTableView& table) : table_(table) {}

    /// Rows stay where they are before this.
    void allow() { isAllowed_ = true; }

    void pressed(const QMouseEvent& event); ///< From there a row may be dragged.
    bool moved(const QMouseEvent& event);   ///< True when the table has to do without it.

    struct Drop {
        int row;
        int gap; ///< Above the row of this number, or below the last one.
    };
    std::optional<Drop> released(const QMouseEvent& event);

    bool giveUp();                  ///< True when there was something to give up.
    void rowsChanged(int rowCount); ///< The row that is dragged may have gone.

private:
    QTableView& table_;
    bool isAllowed_ = false;
    int pressedRow_ = noRow;
    QPoint pressedAt_; ///< In the viewport.
    std::unique_ptr<RowDrag> drag_;
};

} // namespace quorvane
