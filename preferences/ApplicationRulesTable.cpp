#include "preferences/ApplicationRulesTable.h"

#include <algorithm>
#include <utility>

#include "preferences/RuleTableRows.h"
#include "settings/AppRule.h"
#include "settings/DefaultInput.h"
#include "settings/RuleTableOrder.h"

namespace quorvane {
namespace {

constexpr Rect checkBoxFrame{40, 0, 20, 20};
constexpr std::string_view noInput = "-";

AppRule ruleOf(const UserDefaults& standard, const std::string& bundleIdentifier) {
    return AppRule::ofApplication(standard.objectForKey(key::autoInput), bundleIdentifier);
}

} // namespace

CellView ApplicationRulesTable::tableViewForIntputByApplication(std::string_view column, int row) {
    const auto* application = lists_.applicationAt(row);
    if (!application) return {.frame = wideCell};
    if (column == "Icon") return applicationIconCell(desktop_.bundles, *application);
    if (column == "Application Name") {
        const auto path = desktop_.bundles.absolutePathForAppBundle(*application);
        const auto name = path ? desktop_.bundles.displayNameAtPath(*path) : std::string();
        return {.parts = {creatNSTextFieldWithStringValue(name, false, row)}};
    }
    if (column == "Select Input") {
        const bool hasDefault = !desktop_.standard.objectForKey(key::defaultInput).isNothing();
        auto popUp = inputPopUp(lists_, row, !hasDefault, shownInput(*application));
        popUp.action = [this](const std::string& title) { inputSelectionChangedByApplication(title); };
        return {.frame = wideCell, .parts = {std::move(popUp)}};
    }
    if (column == "Force English Symbols") {
        const int state = ruleOf(desktop_.standard, *application).forceEnglishSymbols() ? stateOn : stateOff;
        return {.frame = wideCell,
                .parts = {CheckBoxPart{checkBoxFrame, state, row, [this](int tag, int now) {
                                           onForceEnglishSymbolsChanged(tag, now);
                                       }}}};
    }
    return {.frame = wideCell};
}

/// That of the rule, or else the default one; none when neither is among the sources there are.
std::optional<std::string> ApplicationRulesTable::shownInput(const std::string& bundleIdentifier) const {
    const auto id = ruleOf(desktop_.standard, bundleIdentifier).id();
    return id && lists_.inputs.nameOfInput(*id) ? id : defaultInput(desktop_.standard);
}

void ApplicationRulesTable::inputSelectionChangedByApplication(const std::string& title) {
    // Not the sender's row: the menu that opened last is the one that was chosen from.
    const auto* application = lists_.applicationAt(lists_.rowOfPopUpButton);
    if (!application) return;
    if (title == noInput) {
        setRuleInput(desktop_.standard, *application, std::nullopt);
        return;
    }
    if (const auto id = idOfInputNamed(lists_.inputs, title))
        setRuleInput(desktop_.standard, *application, *id);
    table_.reloadData();
}

void ApplicationRulesTable::onForceEnglishSymbolsChanged(int tag, int state) {
    const auto* application = lists_.applicationAt(tag);
    if (!application) return;
    if (desktop_.companion.isRunning())
        setRuleForceEnglishSymbols(desktop_.standard, *application, state == stateOn);
    else
        companionAlert_.show();
}

void ApplicationRulesTable::onEnglishSymbolChanged(int tag, int state) {
    const auto* application = lists_.applicationAt(tag);
    if (!application) return;
    setRuleEnglishSymbol(desktop_.standard, *application, state == stateOn);
    table_.reloadData();
}

void ApplicationRulesTable::defaultInputChanged() {
    const auto& inputs = lists_.inputs.arrOfInputInfo;
    const int item = defaultInputButton_.indexOfSelectedItem(); // the first one is "-"
    if (item >= 1 && static_cast<std::size_t>(item) <= inputs.size())
        setDefaultInput(desktop_.standard, inputs[static_cast<std::size_t>(item) - 1].id);
    else if (item == 0)
        setDefaultInput(desktop_.standard, std::nullopt);
    table_.reloadData(); // every row offers "-" only while there is no default
}

void ApplicationRulesTable::AddApplication() {
    desktop_.application.activateIgnoringOtherApps();
    desktop_.openPanel.beginChoosingApplication([this](const std::optional<std::string>& bundleIdentifier) {
        if (!bundleIdentifier) return;
        if (isHiddenFromRuleTable(desktop_.standard, *bundleIdentifier))
            showInRuleTable(desktop_.standard, *bundleIdentifier);
        append(*bundleIdentifier);
    });
    checkRemoveByApplicationButton();
}

void ApplicationRulesTable::append(const std::string& bundleIdentifier) {
    if (std::ranges::find(lists_.arrOfApps, bundleIdentifier) != lists_.arrOfApps.end()) return;
    lists_.arrOfApps.push_back(bundleIdentifier);
    table_.reloadData();
}

void ApplicationRulesTable::RemoveApplication() {
    const int row = table_.selectedRow();
    const auto* selected = lists_.applicationAt(row);
    if (!selected) return;
    const auto application = *selected;
    removeRule(desktop_.standard, application);
    hideFromRuleTable(desktop_.standard, application);
    lists_.arrOfApps.erase(lists_.arrOfApps.begin() + row);
    table_.reloadData();
    if (lists_.applicationAt(row))
        table_.selectRow(row);
    else
        removeButton_.setEnabled(false);
}

void ApplicationRulesTable::applicationLaunched(const std::optional<std::string>& bundleIdentifier) {
    if (bundleIdentifier && !isHiddenFromRuleTable(desktop_.standard, *bundleIdentifier))
        append(*bundleIdentifier);
}

void ApplicationRulesTable::moveRow(int dragged, int target) {
    lists_.arrOfApps = reordered(std::move(lists_.arrOfApps), dragged, target);
    setOrderOfAppsRule(desktop_.standard, lists_.arrOfApps);
    table_.reloadData();
    table_.deselectAll();
}

void ApplicationRulesTable::checkRemoveByApplicationButton() {
    removeButton_.setEnabled(table_.selectedRow() != noRow);
}

} // namespace quorvane
