#pragma once

#include <string>
#include <string_view>

#include "platform/CellView.h"
#include "platform/Widgets.h"
#include "platform/Window.h"

namespace quorvane {

/// The check boxes of the options, each by the name of its setting. Null: the interface file has none.
struct OptionCheckBoxes {
    CheckBox* autoStartAtLogin = nullptr;
    CheckBox* enableTipOfState = nullptr;
    CheckBox* followWindow = nullptr;
    CheckBox* hiddenIconInStatusBar = nullptr;
    CheckBox* enableForceEnglishBrowserAddress = nullptr;
};

/// What the preferences window's interface file holds. Lives as long as whoever loaded it keeps it.
struct PreferencesOutlets {
    Window& window;
    TabView& tabView;
    TabHeader& Rules1;
    TabHeader& Preference1;
    TabHeader& Learn1;
    TabHeader& Contactus1;
    TabHeader& FreeApps1;
    Label& version;
    Label& switchTimes;
    Button& removeByApplicationButton;
    Button& removeByLocationButton;
    Button& StartOrStopSetUpButton;
    TableView& autoInputByApplicationTableView;
    TableView& autoInputByLocationTableView;
    TableView& shortcutTableView;
    PopUpButton& buttonOfDefaultInpust;
    OptionCheckBoxes options;
};

/// What the widgets of that file call, and what its tables ask.
class PreferencesActions {
public:
    virtual ~PreferencesActions() = default;

    virtual void Rules() = 0;
    virtual void Preference() = 0;
    virtual void Learn() = 0;
    virtual void FreeApps() = 0;
    virtual void Contactus() = 0;

    virtual void defaultInputChanged() = 0;
    virtual void AddApplication() = 0;
    virtual void RemoveApplication() = 0;
    virtual void mouseDownByApplication() = 0;
    virtual void onEnglishSymbolChanged(int tag, int state) = 0; ///< Of a box with the row as its tag.
    virtual void RemoveLocation() = 0;
    virtual void mouseDownByLocation() = 0;
    virtual void startOrStopSetUpButtonClick() = 0;
    virtual void openLink(std::string_view action) = 0; ///< One of the link actions, by its name.

    // Tables. Rows count from 0.
    virtual int numberOfRowsInTableView(const TableView& table) const = 0;
    virtual CellView viewForTableColumn(const TableView& table, std::string_view column, int row) = 0;
    virtual double heightOfRow(const TableView& table, int row) const = 0;
    virtual bool textShouldEndEditing(const TextFieldPart& control, const std::string& stringValue) = 0;

    /// A row was dropped between rows, above the row `row`. True in any case.
    virtual bool acceptDrop(const TableView& table, const TableView* source, int draggedRow, int row) = 0;
};

class PreferencesInterface {
public:
    virtual ~PreferencesInterface() = default;

    virtual PreferencesOutlets outlets() = 0;

    /// Whom the widgets call from now on. It must outlive this object.
    virtual void connect(PreferencesActions& actions) = 0;
};

} // namespace quorvane
