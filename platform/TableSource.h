#pragma once

#include <string>
#include <string_view>

#include "platform/CellView.h"
#include "platform/Widgets.h"

namespace quorvane {

/// What tables show, and whom they tell what the user did in them. Rows count from 0.
class TableSource {
public:
    virtual ~TableSource() = default;

    virtual int numberOfRowsInTableView(const TableView& table) const = 0;
    virtual CellView viewForTableColumn(const TableView& table, std::string_view column, int row) = 0;
    virtual double heightOfRow(const TableView& table, int row) const = 0; ///< In points.

    /// The user has edited a text; true when the editing may end.
    virtual bool textShouldEndEditing(const TextFieldPart& control, const std::string& stringValue) = 0;

    /// A row was dropped between rows, above the row `row`. True in any case.
    virtual bool acceptDrop(const TableView& table, const TableView* source, int draggedRow, int row) = 0;
};

} // namespace quorvane
