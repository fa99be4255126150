#include "platform/linux/preferences/CellModel.h"

#include <algorithm>

#include "platform/linux/preferences/ShortcutRecorder.h"

namespace quorvane {
void CellModel::setColumnIdentifiers(const QStringList& identifiers) {
    beginResetModel();
    cells_.clear();
    samples_.clear();
    identifiers_ = identifiers;
    endResetModel();
}

void CellModel::setColumnTitles(const QStringList& titles) {
    titles_ = titles;
    if (columnCount() > 0) Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void CellModel::setSource(TableSource& source, const TableView& table) {
    source_ = &source;
    table_ = &table;
}

int CellModel::currentRowCount() const {
    return source_ ? std::max(0, source_->numberOfRowsInTableView(*table_)) : 0;
}

void CellModel::reload() {
    cells_.clear();
    clickedStates_.clear();
    const int before = rowCount_;
    const int now = currentRowCount();
    if (now < before) {
        beginRemoveRows({}, now, before - 1);
        rowCount_ = now;
        endRemoveRows();
    } else if (now > before) {
        beginInsertRows({}, before, now - 1);
        rowCount_ = now;
        endInsertRows();
    }
    if (std::min(before, now) > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(std::min(before, now) - 1, columnCount() - 1));
}

const CellView& CellModel::cell(int row, int column) const {
    static const CellView none;
    if (!source_ || row < 0 || row >= rowCount_ || column < 0 || column >= columnCount()) return none;
    const Place place(row, column);
    const auto known = cells_.find(place);
    return known != cells_.end() ? known->second : cells_.insert_or_assign(place, ask(place)).first->second;
}

CellView CellModel::ask(Place place) const {
    auto cell = source_->viewForTableColumn(*table_, identifiers_[place.second].toStdString(), place.first);
    for (auto& part : cell.parts) {
        if (auto* checkBox = std::get_if<CheckBoxPart>(&part)) {
            const auto clicked = clickedStates_.find(place);
            if (clicked != clickedStates_.end()) checkBox->state = clicked->second;
            checkBox->action = [this, place, action = checkBox->action](int tag, int state) {
                clickedStates_[place] = state;
                cells_.erase(place);
                if (action) action(tag, state);
            };
        } else if (auto* popUp = std::get_if<PopUpButtonPart>(&part)) {
            popUp->action = [this, place, action = popUp->action](const std::string& title) {
                cells_.erase(place);
                if (action) action(title);
            };
        }
    }
    return cell;
}

const CellView& CellModel::sample(int column) const {
    const auto known = samples_.find(column);
    if (known != samples_.end()) return known->second;
    const auto& first = cell(0, column);
    return first.parts.empty() ? first : samples_.emplace(column, first).first->second;
}

void CellModel::keepRows(int first, int last) {
    cells_.erase(cells_.begin(), cells_.lower_bound({first, 0}));
    cells_.erase(cells_.lower_bound({last + 1, 0}), cells_.end());
}

double CellModel::heightOfRow() const {
    return source_ ? source_->heightOfRow(*table_, 0) : 0;
}

int CellModel::nameColumn() const {
    for (int column = 0; column < columnCount(); ++column)
        if (partOf<TextFieldPart>(sample(column))) return column;
    return -1;
}

QString CellModel::nameOfRow(int row) const {
    const auto* name = partOf<TextFieldPart>(cell(row, nameColumn()));
    return name ? QString::fromStdString(name->stringValue) : QString();
}

QString CellModel::labelOf(int row, int column) const {
    const auto title = titles_.value(column);
    const auto name = nameOfRow(row);
    return title.isEmpty() || name.isEmpty() ? title + name : title + QStringLiteral(", ") + name;
}

QString CellModel::accessibleText(int row, int column) const {
    const auto& parts = cell(row, column);
    if (const auto* text = partOf<TextFieldPart>(parts)) return QString::fromStdString(text->stringValue);
    auto label = labelOf(row, column);
    if (const auto* popUp = partOf<PopUpButtonPart>(parts))
        return label + QStringLiteral(": ") + QString::fromStdString(popUp->title);
    const auto* recorder = partOf<ShortcutRecorderPart>(parts);
    const auto shortcut = recorder ? InputShortcut::ofRecord(recorder->objectValue) : std::nullopt;
    if (shortcut && keyboard_) label += QStringLiteral(": ") + keyboard_->textOf(*shortcut);
    if (recorder && recorder->isRefused) label += QStringLiteral(". ") + ShortcutRecorder::textOfRefusal();
    return label;
}

int CellModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rowCount_;
}

int CellModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(identifiers_.size());
}

QVariant CellModel::data(const QModelIndex& index, int role) const {
    const auto textOf = [&] { return partOf<TextFieldPart>(cell(index.row(), index.column())); };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: {
        const auto* text = textOf();
        return text ? QVariant(QString::fromStdString(text->stringValue)) : QVariant();
    }
    case Qt::CheckStateRole: {
        const auto* checkBox = partOf<CheckBoxPart>(cell(index.row(), index.column()));
        return checkBox ? QVariant(checkBox->state ? Qt::Checked : Qt::Unchecked) : QVariant();
    }
    case Qt::AccessibleTextRole:
        return accessibleText(index.row(), index.column());
    default:
        return {};
    }
}

bool CellModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const auto* text = partOf<TextFieldPart>(cell(index.row(), index.column()));
    if (role != Qt::EditRole || !text || !text->isEditable) return false;
    const auto edited = *text; // The program may have the table reloaded.
    return source_->textShouldEndEditing(edited, value.toString().toStdString());
}

QVariant CellModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return titles_.value(section);
    if (role == Qt::TextAlignmentRole && partOf<CheckBoxPart>(sample(section))) return Qt::AlignCenter;
    return {};
}

Qt::ItemFlags CellModel::flags(const QModelIndex& index) const {
    auto flags = QAbstractTableModel::flags(index);
    const auto& parts = cell(index.row(), index.column());
    const auto* text = partOf<TextFieldPart>(parts);
    flags.setFlag(Qt::ItemIsEditable, text && text->isEditable);
    flags.setFlag(Qt::ItemIsUserCheckable, partOf<CheckBoxPart>(parts) != nullptr);
    return flags;
}

QModelIndexList CellModel::match(const QModelIndex& start, int role, const QVariant& value, int hits,
                                 Qt::MatchFlags flags) const {
    const int column = nameColumn();
    if (!start.isValid() || column < 0) return {};
    auto found = QAbstractTableModel::match(start.siblingAtColumn(column), role, value, hits, flags);
    for (auto& each : found)
        each = each.siblingAtColumn(start.column());
    return found;
}

} // namespace quorvane
