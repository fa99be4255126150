#import "platform/macos/preferences/MacPreferences.h"

#import "platform/macos/preferences/AppPrefsWindowController.h"
#import "platform/macos/preferences/MacOutlets.h"
#import "platform/macos/preferences/PreferencesContents.h"
#import "platform/macos/preferences/PreferencesTables.h"
#import "platform/macos/preferences/PreferencesWindow.h"
#import "platform/macos/shell/MacWindow.h"

namespace quorvane {

struct MacPreferences::Widgets {
    explicit Widgets(const Neighbours& neighbours);
    ~Widgets();

    ::AppPrefsWindowController* controller; // kept here: the widgets do not keep whom they tell
    PreferencesContents contents;
    MacWindow window;
    MacTabView tabView;
    MacLabel version, switchTimes;
    MacButton removeApplication, removeLocation, setUp;
    MacPopUpButton defaultInput;
    MacCheckBox autoStartAtLogin, enableTipOfState, followWindow, hiddenIconInStatusBar,
        enableForceEnglishBrowserAddress;
    PreferencesTables tables;
};

MacPreferences::Widgets::Widgets(const Neighbours& neighbours)
    : controller([[::AppPrefsWindowController alloc] initWithWindow:makePreferencesWindow()])
    , contents(controller)
    , window(controller.window, neighbours.notifications)
    , tabView(contents.tabView)
    , version(contents.version)
    , switchTimes(contents.switchTimes)
    , removeApplication(contents.rules.removeApplication)
    , removeLocation(contents.rules.removeLocation)
    , setUp(contents.rules.setUp)
    , defaultInput(contents.rules.defaultInput)
    , autoStartAtLogin(contents.preference.autoStartAtLogin)
    , enableTipOfState(contents.preference.enableTipOfState)
    , followWindow(contents.preference.followWindow)
    , hiddenIconInStatusBar(contents.preference.hiddenIconInStatusBar)
    , enableForceEnglishBrowserAddress(contents.preference.enableForceEnglishBrowserAddress)
    , tables({.applications = contents.rules.applications,
              .locations = contents.rules.locations,
              .noLocations = contents.rules.noLocations,
              .shortcuts = contents.preference.shortcuts},
             [&hotKeys = neighbours.hotKeys] { return hotKeys.suspend(); }) {
    controller.shouldCascadeWindows = NO;
    controller.tables = &tables;
    fillPreferencesWindow(window.native(), contents.view);
    window.native().initialFirstResponder = contents.rules.applications;
}

// Somebody of AppKit's may keep the widgets and the controller for a while yet.
MacPreferences::Widgets::~Widgets() {
    controller.actions = nullptr;
    controller.tables = nullptr;
    window.orderOut();
}

MacPreferences::MacPreferences(const Neighbours& neighbours)
    : widgets_(std::make_unique<Widgets>(neighbours)) {}

MacPreferences::~MacPreferences() = default;

PreferencesOutlets MacPreferences::outlets() {
    auto& contents = widgets_->contents;
    return {.window = widgets_->window,
            .tabView = widgets_->tabView,
            .Rules1 = contents.Rules1,
            .Preference1 = contents.Preference1,
            .Learn1 = contents.Learn1,
            .Contactus1 = contents.Contactus1,
            .FreeApps1 = contents.FreeApps1,
            .version = widgets_->version,
            .switchTimes = widgets_->switchTimes,
            .removeByApplicationButton = widgets_->removeApplication,
            .removeByLocationButton = widgets_->removeLocation,
            .StartOrStopSetUpButton = widgets_->setUp,
            .autoInputByApplicationTableView = widgets_->tables.applications,
            .autoInputByLocationTableView = widgets_->tables.locations,
            .shortcutTableView = widgets_->tables.shortcuts,
            .buttonOfDefaultInpust = widgets_->defaultInput,
            .options = {.autoStartAtLogin = widgets_->autoStartAtLogin,
                        .enableTipOfState = widgets_->enableTipOfState,
                        .followWindow = widgets_->followWindow,
                        .hiddenIconInStatusBar = widgets_->hiddenIconInStatusBar,
                        .enableForceEnglishBrowserAddress = widgets_->enableForceEnglishBrowserAddress}};
}

void MacPreferences::connect(PreferencesActions& actions, TableSource& source) {
    ::AppPrefsWindowController* controller = widgets_->controller;
    controller.actions = &actions;
    auto& tables = widgets_->tables;
    for (auto* table : {&tables.applications, &tables.locations, &tables.shortcuts}) {
        table->native().dataSource = controller;
        table->native().delegate = controller;
        table->connect(source, controller);
    }
}

NSWindow* MacPreferences::nativeWindow() const {
    return widgets_->window.native();
}

} // namespace quorvane
