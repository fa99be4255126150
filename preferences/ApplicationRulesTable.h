#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "input/CompanionLink.h"
#include "platform/Application.h"
#include "platform/ApplicationBundles.h"
#include "platform/OpenPanel.h"
#include "platform/UserDefaults.h"
#include "platform/Widgets.h"
#include "preferences/Cells.h"
#include "preferences/CompanionAlert.h"
#include "preferences/PreferencesLists.h"

namespace quorvane {

/// The table of applications: which input source each gets, and the edits of that.
class ApplicationRulesTable {
public:
    struct Desktop {
        StandardUserDefaults& standard;
        const ApplicationBundles& bundles;
        Application& application;
        OpenPanel& openPanel;
        const CompanionLink& companion;
    };

    ApplicationRulesTable(Desktop desktop, PreferencesLists& lists, CompanionAlert& companionAlert,
                          TableView& table, Button& removeButton, PopUpButton& defaultInputButton)
        : desktop_(desktop)
        , lists_(lists)
        , companionAlert_(companionAlert)
        , table_(table)
        , removeButton_(removeButton)
        , defaultInputButton_(defaultInputButton) {}

    /// A row that is none gives empty cells.
    CellView tableViewForIntputByApplication(std::string_view column, int row);

    /// An item of the menu that was opened last was chosen; "-" takes the source out of the rule.
    void inputSelectionChangedByApplication(const std::string& title);

    /// Needs the companion application: without it nothing is stored, and the user is told.
    void onForceEnglishSymbolsChanged(int tag, int state);

    void onEnglishSymbolChanged(int tag, int state);
    void defaultInputChanged();

    /// Lets the user choose an application. Its row stays until the window is made anew, and then only if it
    /// has a rule or runs.
    void AddApplication();

    /// Removes the selected row with its rule, and keeps the application out of the table.
    void RemoveApplication();

    void applicationLaunched(const std::optional<std::string>& bundleIdentifier);
    void moveRow(int dragged, int target);
    void checkRemoveByApplicationButton();

private:
    void append(const std::string& bundleIdentifier);
    std::optional<std::string> shownInput(const std::string& bundleIdentifier) const;

    Desktop desktop_;
    PreferencesLists& lists_;
    CompanionAlert& companionAlert_;
    TableView& table_;
    Button& removeButton_;
    PopUpButton& defaultInputButton_;
};

} // namespace quorvane
