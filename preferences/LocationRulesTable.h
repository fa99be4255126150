#pragma once

#include <string>
#include <string_view>

#include "platform/ApplicationBundles.h"
#include "platform/UserDefaults.h"
#include "platform/Widgets.h"
#include "preferences/Cells.h"
#include "preferences/PreferencesLists.h"

namespace quorvane {

/// The table of places inside applications that the companion application has reported. Nothing is kept here:
/// the companion may write at any time, so every cell and every edit reads the shared suite afresh.
class LocationRulesTable {
public:
    LocationRulesTable(UserDefaultsStores& stores, const ApplicationBundles& bundles, PreferencesLists& lists,
                       TableView& table, Button& removeButton)
        : stores_(stores)
        , bundles_(bundles)
        , lists_(lists)
        , table_(table)
        , removeButton_(removeButton) {}

    int numberOfRows() const;

    /// A row that is none gives empty cells.
    CellView tableViewForIntputByLocation(std::string_view column, int row);

    /// The name is stored as it was typed, whatever it is.
    void rename(int row, const std::string& name);

    /// An item of the menu that was opened last was chosen. "-" leaves the location the source it had.
    void inputSelectionChangedByLocation(const std::string& title);

    void RemoveLocation();
    void checkRemoveByLocationButton();
    void reload() { table_.reloadData(); }

private:
    UserDefaultsStores& stores_;
    const ApplicationBundles& bundles_;
    PreferencesLists& lists_;
    TableView& table_;
    Button& removeButton_;
};

/// What an editable name in this table is known by.
inline constexpr std::string_view locationNameIdentifier = "Location Name";

} // namespace quorvane
