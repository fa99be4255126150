#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/PreferencesInterface.h"
#include "platform/simulated/Journal.h"
#include "platform/simulated/SimulatedWindow.h"

namespace quorvane {

/// A widget of the simulated interface file, by the name that the journal has for it.
class SimulatedWidget {
public:
    SimulatedWidget(Journal& journal, const char* name) : journal_(journal), name_(name) {}

protected:
    template <class... Parts>
    void tell(const Parts&... parts) {
        journal_.add(name_, " ", parts...);
    }

private:
    Journal& journal_;
    const char* name_;
};

class SimulatedLabel : public SimulatedWidget, public Label {
public:
    using SimulatedWidget::SimulatedWidget;
    void setStringValue(const std::string& text) override { tell("'", text, "'"); }
};

class SimulatedButton : public SimulatedWidget, public Button {
public:
    using SimulatedWidget::SimulatedWidget;
    void setTitle(const std::string& title) override { tell("'", title, "'"); }
    void setEnabled(bool enabled) override { tell(enabled ? "enabled" : "disabled"); }
    void setState(int state) override {
        tell(state == stateOn ? "on" : "off");
        now = state;
    }
    int state() const override { return now; }

    int now = stateOff;
};

class SimulatedCheckBox : public SimulatedWidget, public CheckBox {
public:
    using SimulatedWidget::SimulatedWidget;
    void setState(int state) override { tell(state == stateOn ? "on" : "off"); }
    void whenClicked(std::function<void(int state)> handler) override { clicked_ = std::move(handler); }

    /// The user clicks, and it has this state then.
    void click(int state) { clicked_(state); }

private:
    std::function<void(int state)> clicked_;
};

class SimulatedPopUpButton : public SimulatedWidget, public PopUpButton {
public:
    using SimulatedWidget::SimulatedWidget;
    void setItemTitles(const std::vector<std::string>& titles) override;
    void setTitle(const std::string& title) override;
    int indexOfSelectedItem() const override { return selected; }

    int selected = 0;

private:
    std::vector<std::string> items_;
};

class SimulatedTabView : public SimulatedWidget, public TabView {
public:
    using SimulatedWidget::SimulatedWidget;
    void selectTabViewItemAtIndex(int index) override { tell(index); }
};

class SimulatedTabHeader : public SimulatedWidget, public TabHeader {
public:
    using SimulatedWidget::SimulatedWidget;
    void setShaded(bool shaded) override { tell(shaded ? "shaded" : "clear"); }
};

class SimulatedTableView : public SimulatedWidget, public TableView {
public:
    using SimulatedWidget::SimulatedWidget;
    void reloadData() override { tell("reload"); }
    int selectedRow() const override { return selected; }
    void selectRow(int row) override {
        tell("select ", row);
        selected = row;
    }
    void deselectAll() override {
        tell("deselect");
        selected = noRow;
    }
    void registerForDraggedRows() override { tell("take dragged rows"); }

    int selected = noRow;
};

/// A preferences window without a screen. `actions` is what its widgets would call,
/// and `source` what its tables would ask.
class SimulatedPreferences : public PreferencesInterface {
public:
    SimulatedPreferences(Journal& journal, std::string title, NotificationCenter& notifications)
        : journal_(journal)
        , window(journal, "preferences", notifications, std::move(title)) {}

    PreferencesOutlets outlets() override;
    void connect(PreferencesActions& newActions, TableSource& newSource) override {
        actions = &newActions;
        source = &newSource;
    }

private:
    Journal& journal_;

public:
    SimulatedWindow window;
    SimulatedTabView tabView{journal_, "tab"};
    SimulatedTabHeader rules{journal_, "Rules"}, preference{journal_, "Preference"}, learn{journal_, "Learn"},
        contactUs{journal_, "Contact us"}, freeApps{journal_, "Free apps"};
    SimulatedLabel version{journal_, "version"}, switchTimes{journal_, "switch times"};
    SimulatedButton removeApplication{journal_, "remove application"},
        removeLocation{journal_, "remove location"}, setUp{journal_, "set up"};
    SimulatedTableView applications{journal_, "applications"}, locations{journal_, "locations"},
        shortcuts{journal_, "shortcuts"};
    SimulatedPopUpButton defaultInput{journal_, "default input"};
    SimulatedCheckBox autoStart{journal_, "auto start"}, tip{journal_, "tip"}, follow{journal_, "follow"},
        hidden{journal_, "hidden"}, browser{journal_, "browser"};
    PreferencesActions* actions = nullptr;
    TableSource* source = nullptr;
};

} // namespace quorvane
