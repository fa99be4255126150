#pragma once

#include <functional>
#include <utility>

#include "platform/TableSource.h"
#include "platform/linux/preferences/CellTable.h"

namespace quorvane {

class QtTableView : public TableView {
public:
    /// The table must outlive this object.
    explicit QtTableView(CellTable& table) : table_(table) {}

    /// Shows the program's rows from now on. `action`: the user has clicked in the table or moved its
    /// selection. `source` must outlive the table.
    void connect(TableSource& source, std::function<void()> action) {
        table_.setSource(source, *this, std::move(action));
    }

    void reloadData() override { table_.reload(); }
    int selectedRow() const override { return table_.selectedRow(); }
    void selectRow(int row) override { table_.setSelectedRow(row); }
    void deselectAll() override { table_.deselectAll(); }
    void registerForDraggedRows() override { table_.setReorderable(); }

private:
    CellTable& table_;
};

} // namespace quorvane
