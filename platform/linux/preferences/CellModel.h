#pragma once

#include <map>
#include <utility>
#include <variant>

#include <QAbstractTableModel>
#include <QStringList>

#include "platform/TableSource.h"
#include "platform/linux/preferences/ShortcutKeyboard.h"

namespace quorvane {

/// The first part of this kind in a cell; null when there is none.
template <class Part>
const Part* partOf(const CellView& cell) {
    for (const auto& each : cell.parts)
        if (const auto* part = std::get_if<Part>(&each)) return part;
    return nullptr;
}

/// What the program has for the cells of one table. Cells are asked for one by one, when somebody wants to
/// see them, and kept until the next reload or until their rows are far out of sight.
class CellModel : public QAbstractTableModel {
public:
    // By which names the program knows the columns, and what their headers say.
    void setColumnIdentifiers(const QStringList& identifiers);
    void setColumnTitles(const QStringList& titles);
    const QStringList& columnIdentifiers() const { return identifiers_; }
    const QStringList& columnTitles() const { return titles_; }

    /// Whom to ask, and which table to say it is. Both must outlive this object.
    void setSource(TableSource& source, const TableView& table);

    /// Writes the names of keys. It must outlive this object.
    void setKeyboard(ShortcutKeyboard& keyboard) { keyboard_ = &keyboard; }

    /// How many rows there are now; `rowCount` is as of the last reload.
    int currentRowCount() const;
    void reload();

    /// An empty cell for one that is none. The reference holds until rows are forgotten.
    const CellView& cell(int row, int column) const;

    /// A cell of this column, to tell what kind of column it is. Empty while there are no rows.
    const CellView& sample(int column) const;

    /// Forgets the cells of all other rows.
    void keepRows(int first, int last);

    double heightOfRow() const; ///< In points. All rows are as high as the first one.

    QString nameOfRow(int row) const; ///< The first text in it.

    /// "Select Input, Kate": what a widget in this cell is called where it cannot be seen.
    QString labelOf(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Whichever column it starts in, names are searched.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    using Place = std::pair<int, int>; ///< Row and column.

    CellView ask(Place place) const;
    int nameColumn() const;
    QString accessibleText(int row, int column) const;

    TableSource* source_ = nullptr;
    const TableView* table_ = nullptr;
    ShortcutKeyboard* keyboard_ = nullptr;
    QStringList identifiers_;
    QStringList titles_;
    int rowCount_ = 0;
    mutable std::map<Place, CellView> cells_;
    mutable std::map<int, CellView> samples_;    ///< By column.
    mutable std::map<Place, int> clickedStates_; ///< Of check boxes, whatever the program made of it.
};

} // namespace quorvane
