#include "preferences/AppPrefsWindowController.h"

#include <utility>

#include "input/CompanionMessages.h"
#include "preferences/RuleTableRows.h"
#include "settings/DefaultInput.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

/// As it reads, whatever somebody has stored there.
std::string countText(const PropertyList& stored) {
    const auto* text = stored.string();
    return text ? *text : std::to_string(stored.integerValue());
}

} // namespace

AppPrefsWindowController::AppPrefsWindowController(Desktop& desktop, const CompanionLink& companion,
                                                   PTHotKeyCenter& hotKeyCenter,
                                                   std::unique_ptr<PreferencesInterface> interface,
                                                   std::function<void(std::string_view id)> changeInputTo)
    : desktop_(desktop)
    , interface_(std::move(interface))
    , outlets_(interface_->outlets())
    , checkBoxes_(bindCheckBoxes(outlets_.options, desktop.defaults.standardUserDefaults()))
    , changeInputTo_(std::move(changeInputTo))
    , companionAlert_(desktop.alerts, desktop.application, desktop.links)
    , links_(desktop.links, desktop.clock, desktop.facts, maker::hasWebsite)
    , setUpButton_(companion, desktop.distributedNotifications, desktop.application, companionAlert_, lists_,
                   outlets_.window, outlets_.StartOrStopSetUpButton)
    , applications_({desktop.defaults.standardUserDefaults(), desktop.applicationBundles, desktop.application,
                     desktop.openPanel, companion},
                    lists_, companionAlert_, outlets_.autoInputByApplicationTableView,
                    outlets_.removeByApplicationButton, outlets_.buttonOfDefaultInpust)
    , locations_(desktop.defaults, desktop.applicationBundles, lists_, outlets_.autoInputByLocationTableView,
                 outlets_.removeByLocationButton)
    , shortcuts_(desktop.defaults.standardUserDefaults(), hotKeyCenter, lists_, outlets_.shortcutTableView,
                 [this](const PTHotKey& hotKey) { inputHotKeyAction(hotKey); }) {
    registerObservers();
    awakeFromNib();
    interface_->connect(*this, *this);
}

AppPrefsWindowController::~AppPrefsWindowController() = default;

void AppPrefsWindowController::registerObservers() {
    auto& standard = desktop_.defaults.standardUserDefaults();
    subscriptions_.push_back(desktop_.distributedNotifications.addObserver(
        message::addLocationInfo, [this](const auto& /*notification*/) { addLocationInfoByTandrel(); }));
    // From now on the counter, which stands in the shared suite, is observed through the standard defaults.
    standard.addSuiteNamed(maker::sharedSuiteName);
    subscriptions_.push_back(
        standard.addObserver(key::switchTimes, [this](auto /*key*/) { refreshSwitchTimes(); }));
}

void AppPrefsWindowController::awakeFromNib() {
    desktop_.runLoop.dispatchAfter(0, [this] { Rules(); });
    refreshSwitchTimes();
    outlets_.window.setMovableByWindowBackground(true);
    outlets_.removeByApplicationButton.setEnabled(false);
    outlets_.removeByLocationButton.setEnabled(false);
    outlets_.version.setStringValue(desktop_.application.localizedString("Pro Version") + ": " +
                                    desktop_.application.shortVersion());
    setUpButton_.showStopped();
    lists_.arrOfApps = buildArrOfApps(desktop_.defaults.standardUserDefaults(), desktop_.workspace,
                                      desktop_.applicationBundles, desktop_.facts.launchers);
    buildInputs();
    subscriptions_.push_back(desktop_.notifications.addObserver(
        windowWillCloseNotification, &outlets_.window,
        [this](const Notification& notification) { preferencesWillClose(notification); }));
    outlets_.autoInputByApplicationTableView.registerForDraggedRows();
    subscriptions_.push_back(desktop_.workspace.addObserver(
        WorkspaceNotification::didLaunchApplication,
        [this](const RunningApplication& application) { didLaunchApplicationNotification(application); }));
}

void AppPrefsWindowController::buildInputs() {
    lists_.inputs = InputSourceCatalogue::build(desktop_.inputSources, desktop_.images);
    buildDefaultInputButton();
}

void AppPrefsWindowController::windowWillOpen() {
    if (!std::exchange(hasClosed_, false) || !desktop_.facts.inputSourcesComeAndGo) return;
    buildInputs();
    for (auto* table : {&outlets_.autoInputByApplicationTableView, &outlets_.autoInputByLocationTableView,
                        &outlets_.shortcutTableView})
        table->reloadData();
}

void AppPrefsWindowController::buildDefaultInputButton() {
    outlets_.buttonOfDefaultInpust.setItemTitles(lists_.inputs.arrOfInputName);
    const auto stored = defaultInput(desktop_.defaults.standardUserDefaults());
    const auto name = stored ? lists_.inputs.nameOfInput(*stored) : std::nullopt;
    if (name) outlets_.buttonOfDefaultInpust.setTitle(*name);
}

void AppPrefsWindowController::selectTab(int index, TabHeader& header) {
    outlets_.tabView.selectTabViewItemAtIndex(index);
    header.setShaded(true);
    for (auto* other : {&outlets_.Rules1, &outlets_.Preference1, &outlets_.Learn1, &outlets_.Contactus1,
                        &outlets_.FreeApps1})
        if (other != &header) other->setShaded(false);
}

void AppPrefsWindowController::refreshSwitchTimes() {
    const auto stored = openSharedDefaults(desktop_.defaults)->objectForKey(key::switchTimes);
    outlets_.switchTimes.setStringValue(desktop_.application.localizedString("Switch Times") + ": " +
                                        countText(stored));
}

void AppPrefsWindowController::preferencesWillClose(const Notification& notification) {
    const auto title = desktop_.application.localizedString("Quorvane");
    if (!notification.object || notification.object->title() != title) return;
    hasClosed_ = true;
    outlets_.StartOrStopSetUpButton.setState(stateOff);
    lists_.isClosingPreferences = true;
    startOrStopSetUpButtonClick();
    lists_.isClosingPreferences = false;
}

int AppPrefsWindowController::numberOfRowsInTableView(const TableView& table) const {
    if (&table == &outlets_.autoInputByApplicationTableView) return static_cast<int>(lists_.arrOfApps.size());
    if (&table == &outlets_.autoInputByLocationTableView) return locations_.numberOfRows();
    if (&table == &outlets_.shortcutTableView) return static_cast<int>(lists_.inputs.arrOfInputInfo.size());
    return 0;
}

CellView AppPrefsWindowController::viewForTableColumn(const TableView& table, std::string_view column,
                                                      int row) {
    if (&table == &outlets_.autoInputByApplicationTableView)
        return applications_.tableViewForIntputByApplication(column, row);
    if (&table == &outlets_.autoInputByLocationTableView)
        return locations_.tableViewForIntputByLocation(column, row);
    if (&table == &outlets_.shortcutTableView) return shortcuts_.tableViewForShortcut(column, row);
    return {};
}

double AppPrefsWindowController::heightOfRow(const TableView& /*table*/, int /*row*/) const {
    return rowHeight;
}

bool AppPrefsWindowController::textShouldEndEditing(const TextFieldPart& control,
                                                    const std::string& stringValue) {
    if (control.identifier == locationNameIdentifier) locations_.rename(control.tag, stringValue);
    return true;
}

bool AppPrefsWindowController::acceptDrop(const TableView& table, const TableView* source, int draggedRow,
                                          int row) {
    const bool isReorder = &table == &outlets_.autoInputByApplicationTableView && source == &table;
    if (isReorder) applications_.moveRow(draggedRow, row);
    return true;
}

} // namespace quorvane
