#pragma once

#include <memory>

#include <QObject>
#include <QPoint>
#include <QTimer>

class QTableView;
class QWidget;

namespace quorvane {

/// A row on its way to another place of its table: its picture under the mouse, and a line in the gap into
/// which it would fall. Near the table's ends the table scrolls.
class RowDrag : public QObject {
public:
    /// `from` is where in the viewport the row was pressed. The table must outlive this object.
    RowDrag(QTableView& table, int row, const QPoint& from);
    ~RowDrag() override;

    void moveTo(const QPoint& position); ///< In the viewport.

    int row() const { return row_; }
    int gap() const { return gap_; } ///< Above the row of this number, or below the last one.

private:
    void scroll();
    void update();

    QTableView& table_;
    int row_;
    int gap_;
    int grip_; ///< How far below the row's top it is held.
    QPoint position_;
    std::unique_ptr<QWidget> picture_;
    std::unique_ptr<QWidget> line_;
    QTimer scrolling_;
};

} // namespace quorvane
