#include "platform/linux/preferences/CellControls.h"

#include <algorithm>

#include <QEvent>
#include <QTableView>

#include "platform/linux/preferences/CellCheckBox.h"
#include "platform/linux/preferences/CellPopUp.h"
#include "platform/linux/preferences/ShortcutRecorder.h"

namespace quorvane {

void CellControls::reload() {
    for (auto& [place, shown] : shown_)
        shown.isUpToDate = false;
}

void CellControls::show(int firstRow, int lastRow) {
    for (auto each = shown_.begin(); each != shown_.end();) {
        const int row = each->first.first;
        auto* control = each->second.control;
        const bool exists = row < model_.rowCount() && each->first.second < model_.columnCount();
        const bool isInSight = row >= firstRow && row <= lastRow;
        if (exists && (isInSight || (control && control->isInUse()))) {
            ++each;
            continue;
        }
        each = shown_.erase(each);
        hide(control);
    }
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = 0; column < model_.columnCount(); ++column)
            shown_.try_emplace({row, column});
    for (const auto& each : shown_)
        update(each.first);
}

void CellControls::update(Place place) {
    auto& shown = shown_[place];
    const auto [row, column] = place;
    if (!shown.isUpToDate) {
        auto* before = shown.control;
        shown.control = furnished(model_.cell(row, column), before);
        shown.isUpToDate = true;
        if (before && before != shown.control) hide(before);
        if (shown.control) shown.control->widget().setAccessibleName(model_.labelOf(row, column));
    }
    if (!shown.control) return;
    auto& widget = shown.control->widget();
    const auto cell = table_.visualRect(model_.index(row, column));
    widget.setGeometry(QStyle::visualRect(table_.layoutDirection(), cell, shown.control->placeIn(cell)));
    widget.show();
}

/// The widget for what is in the cell: the present one if it is of that kind.
CellControl* CellControls::furnished(const CellView& cell, CellControl* present) {
    const auto furnish = [](auto* control, const auto& part) {
        control->setPart(part);
        return control;
    };
    if (const auto* popUp = partOf<PopUpButtonPart>(cell)) return furnish(take<CellPopUp>(present), *popUp);
    if (const auto* checkBox = partOf<CheckBoxPart>(cell))
        return furnish(take<CellCheckBox>(present), *checkBox);
    const auto* recorder = partOf<ShortcutRecorderPart>(cell);
    return recorder && keyboard_ ? furnish(take<ShortcutRecorder>(present, *keyboard_), *recorder) : nullptr;
}

template <class Control, class... Arguments>
Control* CellControls::take(CellControl* present, Arguments&... arguments) {
    if (auto* fitting = dynamic_cast<Control*>(present)) return fitting;
    const auto isFitting = [](CellControl* each) { return dynamic_cast<Control*>(each) != nullptr; };
    const auto found = std::ranges::find_if(hidden_, isFitting);
    if (found != hidden_.end()) {
        auto* control = dynamic_cast<Control*>(*found);
        hidden_.erase(found);
        return control;
    }
    auto* control = new Control(arguments..., table_.viewport());
    control->installEventFilter(this);
    return control;
}

void CellControls::hide(CellControl* control) {
    if (!control) return;
    control->endUse();
    control->widget().hide();
    hidden_.push_back(control);
}

CellControl* CellControls::at(const QModelIndex& index) const {
    const auto found = shown_.find({index.row(), index.column()});
    return found == shown_.end() ? nullptr : found->second.control;
}

bool CellControls::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
        return false;
    const auto pressed = std::ranges::find_if(shown_, [watched](const auto& each) {
        return each.second.control && &each.second.control->widget() == watched;
    });
    if (pressed != shown_.end() && !pressed->second.control->isInUse())
        pressed_(model_.index(pressed->first.first, pressed->first.second));
    return false;
}

} // namespace quorvane
