#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "input/CompanionLink.h"
#include "platform/Desktop.h"
#include "preferences/ApplicationRulesTable.h"
#include "preferences/CheckBoxBinding.h"
#include "preferences/CompanionAlert.h"
#include "preferences/LocationRulesTable.h"
#include "preferences/PreferencesLinks.h"
#include "preferences/PreferencesLists.h"
#include "preferences/SetUpButton.h"
#include "preferences/ShortcutTable.h"

namespace quorvane {

/// Runs the preferences window. Made at the first request and kept for the life of the process. It edits
/// settings only: what follows from an edit, others do who observe them.
class AppPrefsWindowController : public PreferencesActions, public TableSource {
public:
    /// `changeInputTo` is asked for the input source whose hot key was pressed. The window is set up when
    /// this returns, but for the tab, which is chosen once the run loop has had its turn.
    AppPrefsWindowController(Desktop& desktop, const CompanionLink& companion, PTHotKeyCenter& hotKeyCenter,
                             std::unique_ptr<PreferencesInterface> interface,
                             std::function<void(std::string_view id)> changeInputTo);
    ~AppPrefsWindowController() override;

    Window& window() { return outlets_.window; }

    /// A recorder begins: nothing is to be done, and the hot keys stay as they are.
    void shortcutRecorderWillBegin() {}

    /// A hot key that was recorded in this window was pressed.
    void inputHotKeyAction(const PTHotKey& hotKey) { changeInputTo_(hotKey.identifier()); }

    /// The window is about to be shown, or to be brought to the front. Where input sources come and go, it
    /// opens with those that there are.
    void windowWillOpen();
    void preferencesWillClose(const Notification& notification);
    void refreshSwitchTimes();
    void addLocationInfoByTandrel() { locations_.reload(); }
    void didLaunchApplicationNotification(const RunningApplication& application) {
        applications_.applicationLaunched(application.bundleIdentifier);
    }

    // What the interface file calls.
    void Rules() override { selectTab(0, outlets_.Rules1); }
    void Preference() override { selectTab(1, outlets_.Preference1); }
    void Learn() override { selectTab(2, outlets_.Learn1); }
    void FreeApps() override { selectTab(3, outlets_.FreeApps1); }
    void Contactus() override { selectTab(4, outlets_.Contactus1); }
    void defaultInputChanged() override { applications_.defaultInputChanged(); }
    void AddApplication() override { applications_.AddApplication(); }
    void RemoveApplication() override { applications_.RemoveApplication(); }
    void mouseDownByApplication() override { applications_.checkRemoveByApplicationButton(); }
    void onEnglishSymbolChanged(int tag, int state) override {
        applications_.onEnglishSymbolChanged(tag, state);
    }
    void RemoveLocation() override { locations_.RemoveLocation(); }
    void mouseDownByLocation() override { locations_.checkRemoveByLocationButton(); }
    void startOrStopSetUpButtonClick() override { setUpButton_.startOrStopSetUpButtonClick(); }
    void openLink(std::string_view action) override { links_.open(action); }

    // What its tables ask.
    int numberOfRowsInTableView(const TableView& table) const override;
    CellView viewForTableColumn(const TableView& table, std::string_view column, int row) override;
    double heightOfRow(const TableView& table, int row) const override;
    bool textShouldEndEditing(const TextFieldPart& control, const std::string& stringValue) override;
    bool acceptDrop(const TableView& table, const TableView* source, int draggedRow, int row) override;

private:
    void registerObservers();
    void awakeFromNib();
    void buildInputs();
    void buildDefaultInputButton();
    void selectTab(int index, TabHeader& header);

    Desktop& desktop_;
    std::unique_ptr<PreferencesInterface> interface_;
    PreferencesOutlets outlets_;
    std::vector<CheckBoxBinding> checkBoxes_;
    std::function<void(std::string_view id)> changeInputTo_;

    PreferencesLists lists_;
    bool hasClosed_ = false; ///< The window was closed and has not opened again.
    CompanionAlert companionAlert_;
    PreferencesLinks links_;
    SetUpButton setUpButton_;
    ApplicationRulesTable applications_;
    LocationRulesTable locations_;
    ShortcutTable shortcuts_;

    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
