#pragma once

#include <functional>

#include <QTableView>

#include "platform/linux/preferences/CellControls.h"
#include "platform/linux/preferences/CellModel.h"
#include "platform/linux/preferences/ColumnWidths.h"
#include "platform/linux/preferences/IconLoader.h"
#include "platform/linux/preferences/RowDragging.h"

namespace quorvane {

/// A table of the preferences window: texts and icons that are drawn, and pop-up buttons, check boxes and
/// recorders of shortcuts. Only the rows in sight cost anything.
///
/// It is one stop of the Tab key. The arrow keys go from cell to cell, Space, Enter or F2 do what a click on
/// the cell does, Delete takes a shortcut away, and letters go to the row whose name begins with them.
class CellTable : public QTableView {
    Q_OBJECT
    /// The names by which the program knows the columns.
    Q_PROPERTY(QStringList columnIdentifiers READ columnIdentifiers WRITE setColumnIdentifiers)
    /// What their headers say, in the user's language.
    Q_PROPERTY(QStringList columnTitles READ columnTitles WRITE setColumnTitles)
    /// What stands in the table while it has no rows.
    Q_PROPERTY(QString emptyText MEMBER emptyText_)

public:
    explicit CellTable(QWidget* parent = nullptr);
    ~CellTable() override;

    QStringList columnIdentifiers() const { return model_.columnIdentifiers(); }
    void setColumnIdentifiers(const QStringList& identifiers);
    QStringList columnTitles() const { return model_.columnTitles(); }
    void setColumnTitles(const QStringList& titles) { model_.setColumnTitles(titles); }

    /// For tables with recorders of shortcuts, which would otherwise be missing. It must outlive this object.
    void setKeyboard(ShortcutKeyboard& keyboard);

    /// From now on the cells are the program's: it is asked for them as those of `table`. `action` is called
    /// when the user clicks in the table or moves its selection. All must outlive this object.
    void setSource(TableSource& source, const TableView& table, std::function<void()> action);

    // What the program does to its table, see `TableView`. `action` is not called.
    void reload();
    int selectedRow() const;
    void setSelectedRow(int row);
    void deselectAll();
    void setReorderable() { dragging_.allow(); }

protected:
    void changeEvent(QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void showEvent(QShowEvent* event) override;
    int sizeHintForColumn(int column) const override { return widths_.preferredWidth(column); }
    void updateGeometries() override;

private:
    void endEditingFrom(int row);
    void updateRowHeight();
    void updateSight();
    bool act(const QModelIndex& index);
    void pressControl(const QModelIndex& index);
    void tellAction();

    CellModel model_;
    IconLoader icons_;
    CellControls controls_;
    ColumnWidths widths_{*this, model_};
    RowDragging dragging_{*this};
    TableSource* source_ = nullptr;
    const TableView* port_ = nullptr;
    std::function<void()> action_;
    QString emptyText_;
    bool isUpdatingSight_ = false;
    bool isQuiet_ = false; ///< It is the program who moves the selection, or a click that is told of anyway.
};

} // namespace quorvane
