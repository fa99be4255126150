#include "preferences/LocationRulesTable.h"

#include <utility>

#include "settings/LocationRule.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

int LocationRulesTable::numberOfRows() const {
    return static_cast<int>(numberOfLocationRules(*openSharedDefaults(stores_)));
}

CellView LocationRulesTable::tableViewForIntputByLocation(std::string_view column, int row) {
    const auto rule =
        row < 0 ? std::nullopt : locationRuleAt(*openSharedDefaults(stores_), static_cast<std::size_t>(row));
    if (!rule) return {.frame = wideCell};
    if (column == "Icon") return applicationIconCell(bundles_, rule->bundleIdentifier);
    if (column == locationNameIdentifier) {
        auto name = creatNSTextFieldWithStringValue(rule->name, false, row);
        name.identifier = locationNameIdentifier;
        name.isEditable = true;
        return {.parts = {std::move(name)}};
    }
    if (column == "Select Input") {
        auto popUp = inputPopUp(lists_, row, true, rule->inputID);
        popUp.action = [this](const std::string& title) { inputSelectionChangedByLocation(title); };
        return {.frame = wideCell, .parts = {std::move(popUp)}};
    }
    return {.frame = wideCell};
}

void LocationRulesTable::rename(int row, const std::string& name) {
    if (row >= 0) setLocationName(*openSharedDefaults(stores_), static_cast<std::size_t>(row), name);
    table_.reloadData();
}

void LocationRulesTable::inputSelectionChangedByLocation(const std::string& title) {
    const auto id = idOfInputNamed(lists_.inputs, title);
    const int row = lists_.rowOfPopUpButton;
    if (id && row >= 0) setLocationInput(*openSharedDefaults(stores_), static_cast<std::size_t>(row), *id);
    table_.reloadData(); // after "-", the menu shows the source that was kept
}

void LocationRulesTable::RemoveLocation() {
    const int row = table_.selectedRow();
    if (row == noRow) return;
    removeLocation(*openSharedDefaults(stores_), static_cast<std::size_t>(row));
    table_.reloadData();
    if (row < numberOfRows())
        table_.selectRow(row);
    else
        removeButton_.setEnabled(false);
}

void LocationRulesTable::checkRemoveByLocationButton() {
    removeButton_.setEnabled(table_.selectedRow() != noRow);
}

} // namespace quorvane
