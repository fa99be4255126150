#pragma once

#include <string>
#include <string_view>

#include "platform/TableSource.h"
#include "platform/Widgets.h"
#include "platform/Window.h"

namespace quorvane {

/// The check boxes of the options, each by the name of its setting.
struct OptionCheckBoxes {
    CheckBox& autoStartAtLogin;
    CheckBox& enableTipOfState;
    CheckBox& followWindow;
    CheckBox& hiddenIconInStatusBar;
    CheckBox& enableForceEnglishBrowserAddress;
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

/// What the widgets of that file call.
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
};

class PreferencesInterface {
public:
    virtual ~PreferencesInterface() = default;

    virtual PreferencesOutlets outlets() = 0;

    /// Whom the widgets call and the tables ask from now on. Both must outlive this object.
    virtual void connect(PreferencesActions& actions, TableSource& source) = 0;
};

} // namespace quorvane
