#pragma once

#include <QTableView>

#include "platform/linux/preferences/CellModel.h"

namespace quorvane {

/// How wide the columns of a table are. They are laid out when the table is shown, for their titles, and once
/// more when its first row shows what is in them: from then on they are as the user makes them.
class ColumnWidths {
public:
    /// Both must outlive this object.
    ColumnWidths(QTableView& table, const CellModel& model);

    void layOut();                        ///< Where that is still to be done.
    void forget() { fit_ = Fit::none; }   ///< The columns are others.
    int preferredWidth(int column) const; ///< Room for its title, and for what is in it but texts.

private:
    enum class Fit { none, titles, cells };

    int stretchedColumn(Fit fit) const;

    QTableView& table_;
    const CellModel& model_;
    Fit fit_ = Fit::none; ///< What the widths are right for.
};

} // namespace quorvane
