#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include <QModelIndex>
#include <QObject>

#include "platform/linux/preferences/CellControl.h"
#include "platform/linux/preferences/CellModel.h"

class QTableView;

namespace quorvane {

/// The widgets in the cells of a table, for the rows in sight: a widget whose row has gone out of sight is
/// given to a row that has come into sight.
class CellControls : public QObject {
public:
    /// `pressed` is told of the cell whose widget the user presses a button of the mouse on, before the
    /// widget is. All must outlive this object.
    CellControls(QTableView& table, const CellModel& model, std::function<void(const QModelIndex&)> pressed)
        : table_(table)
        , model_(model)
        , pressed_(std::move(pressed)) {}

    /// Needed for cells that record shortcuts; without it they stay empty. It must outlive the table.
    void setKeyboard(ShortcutKeyboard& keyboard) { keyboard_ = &keyboard; }

    /// The cells have changed: the next `show` looks at each of them again.
    void reload();

    /// Has a widget in each cell of these rows that needs one, in its place. Others are hidden, except one
    /// that the user is in the midst of using.
    void show(int firstRow, int lastRow);

    /// Null when there is none, or its row is out of sight.
    CellControl* at(const QModelIndex& index) const;

private:
    using Place = std::pair<int, int>; ///< Row and column.
    struct Shown {
        CellControl* control = nullptr;
        bool isUpToDate = false;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    void update(Place place);
    CellControl* furnished(const CellView& cell, CellControl* present);
    template <class Control, class... Arguments>
    Control* take(CellControl* present, Arguments&... arguments);
    void hide(CellControl* control);

    QTableView& table_;
    const CellModel& model_;
    std::function<void(const QModelIndex&)> pressed_;
    ShortcutKeyboard* keyboard_ = nullptr;
    std::map<Place, Shown> shown_;
    std::vector<CellControl*> hidden_; // All widgets belong to the table's viewport.
};

} // namespace quorvane
