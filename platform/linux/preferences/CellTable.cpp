#include "platform/linux/preferences/CellTable.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "platform/linux/preferences/CellDelegate.h"

namespace quorvane {
namespace {

constexpr int aroundControl = 4; ///< Above and below it together.

} // namespace

CellTable::CellTable(QWidget* parent)
    : QTableView(parent)
    , icons_([this] { viewport()->update(); })
    , controls_(*this, model_, [this](const QModelIndex& index) { pressControl(index); }) {
    setItemDelegate(new CellDelegate(model_, icons_, this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    auto& header = *horizontalHeader();
    header.setHighlightSections(false);
    header.setSectionsClickable(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setModel(&model_);
    updateRowHeight();
}

CellTable::~CellTable() {
    isQuiet_ = true;   // Whom it would tell of its selection's end may be gone.
    setModel(nullptr); // It goes before the table does.
}

void CellTable::setColumnIdentifiers(const QStringList& identifiers) {
    model_.setColumnIdentifiers(identifiers);
    widths_.forget();
}

void CellTable::setKeyboard(ShortcutKeyboard& keyboard) {
    model_.setKeyboard(keyboard);
    controls_.setKeyboard(keyboard);
}

void CellTable::setSource(TableSource& source, const TableView& table, std::function<void()> action) {
    source_ = &source;
    port_ = &table;
    action_ = std::move(action);
    model_.setSource(source, table);
    reload();
    updateRowHeight();
}

void CellTable::reload() {
    const QScopedValueRollback quiet(isQuiet_, true);
    const int count = model_.currentRowCount();
    endEditingFrom(count);
    if (selectedRow() >= count) clearSelection();
    // Or else the row that the toolkit goes to instead would be selected.
    if (currentIndex().row() >= count)
        selectionModel()->setCurrentIndex(model_.index(count - 1, currentIndex().column()),
                                          QItemSelectionModel::NoUpdate);
    dragging_.rowsChanged(count);
    controls_.reload();
    model_.reload();
    updateSight();
}

/// What is being edited in a row that has gone is no row's any more, and the toolkit would still commit it.
void CellTable::endEditingFrom(int row) {
    const auto edited = currentIndex();
    if (state() != EditingState || edited.row() < row) return;
    if (auto* editor = indexWidget(edited)) closeEditor(editor, QAbstractItemDelegate::NoHint);
}

int CellTable::selectedRow() const {
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? noRow : rows.first().row();
}

void CellTable::setSelectedRow(int row) {
    const QScopedValueRollback quiet(isQuiet_, true);
    const auto index = model_.index(row, std::max(0, currentIndex().column()));
    if (!index.isValid()) return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CellTable::deselectAll() {
    const QScopedValueRollback quiet(isQuiet_, true);
    clearSelection();
}

void CellTable::updateRowHeight() {
    const int control = std::max(QComboBox().sizeHint().height(), fontMetrics().height() + aroundControl);
    const int height = std::max(static_cast<int>(std::ceil(model_.heightOfRow())), control + aroundControl);
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

/// Has what is to be seen in the rows that can be seen now, and nothing else.
void CellTable::updateSight() {
    if (isUpdatingSight_ || !isVisible()) return;
    const QScopedValueRollback updating(isUpdatingSight_, true);
    widths_.layOut();
    int first = rowAt(0);
    int last = rowAt(viewport()->height() - 1);
    if (first < 0)
        first = last = -1;
    else if (last < 0)
        last = model_.rowCount() - 1;
    const int screenful = last - first + 1;
    model_.keepRows(first - screenful, last + screenful);
    controls_.show(std::max(first, 0), last);

    std::vector<IconLoader::Icon> icons;
    for (int row = std::max(first, 0); row <= last; ++row) {
        for (int column = 0; column < model_.columnCount(); ++column) {
            const auto* image = partOf<ImageViewPart>(model_.cell(row, column));
            const auto icon = image ? CellDelegate::iconToLoad(*image, devicePixelRatioF()) : std::nullopt;
            if (icon) icons.push_back(*icon);
        }
    }
    icons_.load(icons);
}

bool CellTable::act(const QModelIndex& index) {
    if (!index.isValid()) return false;
    scrollTo(index);
    if (auto* control = controls_.at(index)) {
        control->act();
        return true;
    }
    return index.flags() & Qt::ItemIsEditable && edit(index, AllEditTriggers, nullptr);
}

/// A widget in a cell was pressed: its cell is where the keyboard goes on from.
void CellTable::pressControl(const QModelIndex& index) {
    const QScopedValueRollback quiet(isQuiet_, true);
    setFocus(Qt::MouseFocusReason);
    setCurrentIndex(index);
    tellAction();
}

void CellTable::tellAction() {
    if (action_) action_();
}

void CellTable::keyPressEvent(QKeyEvent* event) {
    if (auto* control = controls_.at(currentIndex()); control && control->takeKey(*event)) return;
    const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    switch (isPlain ? event->key() : 0) {
    case Qt::Key_Escape:
        if (dragging_.giveUp()) return;
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        if (act(currentIndex())) return;
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void CellTable::mousePressEvent(QMouseEvent* event) {
    {
        const QScopedValueRollback quiet(isQuiet_, true);
        QTableView::mousePressEvent(event);
    }
    dragging_.pressed(*event);
    tellAction();
}

void CellTable::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    dragging_.pressed(*event);
}

void CellTable::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_.moved(*event)) QTableView::mouseMoveEvent(event);
}

void CellTable::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const auto drop = dragging_.released(*event);
    if (drop && source_) source_->acceptDrop(*port_, port_, drop->row, drop->gap);
}

void CellTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (!isQuiet_) tellAction();
}

/// The Tab key ends the editing of a name and does not begin that of the next one.
void CellTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint /*hint*/) {
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void CellTable::updateGeometries() {
    QTableView::updateGeometries();
    updateSight();
}

void CellTable::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    updateSight();
}

void CellTable::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    updateSight();
}

void CellTable::hideEvent(QHideEvent* event) {
    QTableView::hideEvent(event);
    dragging_.giveUp();
    icons_.load({});
    if (!window()->isVisible()) icons_.clear(); // The window is closed, not another tab chosen.
}

void CellTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    updateRowHeight();
    updateSight();
}

void CellTable::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model_.rowCount() > 0 || emptyText_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    constexpr int around = 16;
    painter.drawText(viewport()->rect().adjusted(around, around, -around, -around),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

} // namespace quorvane
