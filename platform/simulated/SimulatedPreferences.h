#pragma once

#include <string>
#include <vector>

#include "platform/PreferencesInterface.h"
#include "platform/simulated/SimulatedWindow.h"

namespace quorvane {

// Widgets that remember what they were told and do what a user does by call.

struct SimulatedLabel : Label {
    void setStringValue(const std::string& text) override { stringValue = text; }

    std::string stringValue;
};

struct SimulatedButton : Button {
    void setTitle(const std::string& newTitle) override { title = newTitle; }
    void setEnabled(bool enabled) override { isEnabled = enabled; }
    void setState(int state) override { now = state; }
    int state() const override { return now; }

    std::string title;
    bool isEnabled = true;
    int now = stateOff;
};

struct SimulatedPopUpButton : PopUpButton {
    void setItemTitles(const std::vector<std::string>& titles) override {
        items = titles;
        selected = 0;
    }
    void setTitle(const std::string& title) override;
    int indexOfSelectedItem() const override { return selected; }
    std::string title() const { return items.empty() ? "" : items[static_cast<std::size_t>(selected)]; }

    std::vector<std::string> items;
    int selected = 0;
};

struct SimulatedTabView : TabView {
    void selectTabViewItemAtIndex(int index) override { selected = index; }

    int selected = -1;
};

struct SimulatedTabHeader : TabHeader {
    void setShaded(bool shaded) override { isShaded = shaded; }

    bool isShaded = false;
};

struct SimulatedTableView : TableView {
    void reloadData() override { ++reloads; }
    int selectedRow() const override { return selected; }
    void selectRow(int row) override { selected = row; }
    void deselectAll() override { selected = noRow; }
    void registerForDraggedRows() override { takesDraggedRows = true; }

    int reloads = 0;
    int selected = noRow;
    bool takesDraggedRows = false;
};

/// A preferences window without a screen. `actions` is what its widgets would call.
class SimulatedPreferences : public PreferencesInterface {
public:
    SimulatedPreferences(std::string title, NotificationCenter& notifications)
        : window(std::move(title), notifications) {}

    PreferencesOutlets outlets() override;
    void connect(PreferencesActions& newActions) override { actions = &newActions; }

    SimulatedWindow window;
    SimulatedTabView tabView;
    SimulatedTabHeader rules, preference, learn, contactUs, freeApps;
    SimulatedLabel version, switchTimes;
    SimulatedButton removeApplication, removeLocation, setUp;
    SimulatedTableView applications, locations, shortcuts;
    SimulatedPopUpButton defaultInput;
    PreferencesActions* actions = nullptr;
};

} // namespace quorvane
