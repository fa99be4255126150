#include "platform/linux/preferences/ColumnWidths.h"

#include <algorithm>
#include <cmath>

#include <QHeaderView>

#include "platform/linux/preferences/CellPopUp.h"
#include "platform/linux/preferences/ShortcutRecorder.h"

namespace quorvane {
namespace {

constexpr int narrowestColumn = 28;
constexpr int besideColumn = 6; ///< Between what is in a column and the next one.

} // namespace

ColumnWidths::ColumnWidths(QTableView& table, const CellModel& model) : table_(table), model_(model) {
    table.horizontalHeader()->setMinimumSectionSize(narrowestColumn);
}

int ColumnWidths::preferredWidth(int column) const {
    const auto& cell = model_.sample(column);
    const auto& font = table_.fontMetrics();
    int width = table_.horizontalHeader()->sectionSizeHint(column);
    const auto makeRoom = [&width](double wanted) {
        width = std::max(width, static_cast<int>(std::ceil(wanted)));
    };
    if (const auto* image = partOf<ImageViewPart>(cell)) makeRoom(image->frame.x + image->frame.width);
    if (const auto* popUp = partOf<PopUpButtonPart>(cell))
        makeRoom(popUp->frame.x + CellPopUp::preferredWidth(*popUp, font));
    if (const auto* recorder = partOf<ShortcutRecorderPart>(cell))
        makeRoom(recorder->frame.x + ShortcutRecorder::preferredWidth(font));
    return width + besideColumn;
}

/// The one with texts. As long as nothing is known of what will be in them, the last one below a title.
int ColumnWidths::stretchedColumn(Fit fit) const {
    const int last = model_.columnCount() - 1;
    for (int column = 0; column <= last; ++column)
        if (partOf<TextFieldPart>(model_.sample(column))) return column;
    int stretched = last;
    while (fit == Fit::titles && stretched > 0 && !model_.columnTitles().value(stretched - 1).isEmpty())
        --stretched;
    return stretched;
}

// Every change of a width comes back here, so what is under way counts as done.
void ColumnWidths::layOut() {
    const auto wanted = model_.rowCount() > 0 ? Fit::cells : Fit::titles;
    if (fit_ >= wanted || model_.columnCount() == 0) return;
    fit_ = wanted;
    auto& header = *table_.horizontalHeader();
    for (int column = model_.columnCount() - 1; column >= 0; --column) {
        header.setSectionResizeMode(column, QHeaderView::Interactive);
        header.resizeSection(column, preferredWidth(column));
    }
    header.setSectionResizeMode(stretchedColumn(wanted), QHeaderView::Stretch);
}

} // namespace quorvane
