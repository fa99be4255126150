#include "app/AppDelegate.h"

#include <cstdint>
#include <string>

#include "input/CompanionMessages.h"
#include "settings/FormerLaunchers.h"
#include "settings/Keys.h"
#include "settings/Maker.h"
#include "settings/SharedDefaults.h"
#include "shortcuts/InputHotKeys.h"

namespace quorvane {
namespace {

AppDelegate* theDelegate = nullptr;

constexpr double openPreferencesDelay = 0.01; // seconds

/// The preferences window's title where it is not translated. Where it is, closing the window does not
/// relaunch the program.
constexpr std::string_view preferencesTitle = "Quorvane";

} // namespace

AppDelegate::AppDelegate(Desktop& desktop)
    : desktop_(desktop)
    , standardDefaults_(desktop.defaults.standardUserDefaults())
    , interface_(desktop.interfaceFiles.mainInterface())
    , focusReset_(interface_.window, desktop.runLoop, standardDefaults_)
    , companion_(desktop.workspace, desktop.defaults, desktop.distributedNotifications)
    , inputSwitch_(desktop.inputSources, desktop.defaults, desktop.workspace, desktop.facts.launchers,
                   openLaunchers_, companion_, [this] { reset(); })
    , stateTip_(desktop.inputSources, desktop.images, desktop.defaults, interface_.iconView,
                interface_.iconBox)
    , inputChangeWatch_(desktop.runLoop,
                        [this] {
                            stateTip_.inputChnagedNotification();
                            statusBarIcon_.toolTipChanged();
                        })
    , indicator_(interface_, desktop.screens, desktop.windowList, desktop.workspace, desktop.cursor,
                 standardDefaults_, openLaunchers_, stateTip_)
    , followWindowWatch_(desktop.globalEvents, desktop.windowList, standardDefaults_, companion_, indicator_)
    , switchPause_(desktop.runLoop, desktop.clock)
    , inputDecision_(desktop.defaults, inputSwitch_, companion_, switchPause_, desktop.runLoop, desktop.clock,
                     desktop.facts.launchers, desktop.facts.switchDelay, [this] { reset(); })
    , appChangeHandler_(desktop.screens, desktop.runLoop, companion_, openLaunchers_, inputDecision_,
                        indicator_, desktop.facts.screenChangeDelay)
    , launcherEpisodes_(desktop.workspace, inputDecision_, appChangeHandler_, indicator_)
    , launcherWatch_(desktop.workspace, desktop.windowList, desktop.runLoop, openLaunchers_,
                     launcherEpisodes_, indicator_)
    , launcherNews_(openLaunchers_, launcherEpisodes_, indicator_)
    , hotKeyCenter_(desktop.hotKeys)
    , loginItemsReminder_(desktop.alerts, desktop.application, desktop.processes, standardDefaults_,
                          desktop.facts.loginItemsCommand)
    , launchAtLogin_(desktop.loginItems, standardDefaults_, desktop.log)
    , settingsMirror_(desktop.defaults)
    , statusToolTip_(inputDecision_, switchPause_, desktop.inputSources, desktop.applicationBundles,
                     desktop.application)
    , statusBarIcon_(desktop.statusBar, desktop.images, statusMenu(),
                     [this] { return statusToolTip_.text(); }) {
    theDelegate = this;
}

AppDelegate::~AppDelegate() {
    theDelegate = nullptr;
}

AppDelegate* AppDelegate::appDelegate() {
    return theDelegate;
}

void AppDelegate::applicationDidFinishLaunching() {
    loginItemsReminder_.showIfNeeded();
    launchAtLogin_.initWithIdentifier(maker::loginItemIdentifier);

    indicator_.setUpWindow();
    indicator_.showInitialState();
    updateStatusBarItem();

    takeOverFormerLaunchers(standardDefaults_, desktop_.facts.launchers);
    takeOverFormerLaunchers(*openSharedDefaults(desktop_.defaults), desktop_.facts.launchers);
    observeDefaults();
    observeWorkspace();
    observeDistributedNotifications();
    registerAllHotKey(standardDefaults_, hotKeyCenter_,
                      [this](const PTHotKey& hotKey) { inputHotKeyAction(hotKey); });
    observeLaunchersAndMouse();
    // Changed rules are where it reads them once the observers above have been told.
    if (desktop_.switchingAhead)
        rulesAhead_.emplace(*desktop_.switchingAhead, desktop_.defaults, desktop_.workspace, companion_,
                            switchPause_, inputDecision_);
}

void AppDelegate::observeDefaults() {
    const auto observe = [this](ObservedUserDefaults& defaults, std::string_view observedKey) {
        subscriptions_.push_back(defaults.addObserver(
            observedKey, [this](std::string_view keyPath) { observeValueForKeyPath(keyPath); }));
    };
    observe(standardDefaults_, key::hiddenIconInStatusBar);
    observe(standardDefaults_, key::enableTipOfState);
    observe(standardDefaults_.ownDomain(), key::autoInput);
    observe(standardDefaults_.ownDomain(), key::enableForceEnglishBrowserAddress);
}

void AppDelegate::observeWorkspace() {
    for (const auto notification :
         {WorkspaceNotification::didActivateApplication, WorkspaceNotification::didUnhideApplication}) {
        subscriptions_.push_back(
            desktop_.workspace.addObserver(notification, [this](const RunningApplication& application) {
                appChangeHandler_.appChanged(application);
            }));
    }
    subscriptions_.push_back(desktop_.workspace.addObserver(
        WorkspaceNotification::didLeaveFront, [this](const auto&) { appChangeHandler_.frontLeft(); }));
}

void AppDelegate::observeDistributedNotifications() {
    subscriptions_.push_back(inputDecision_.decided.connect([this] { statusBarIcon_.toolTipChanged(); }));
    subscriptions_.push_back(switchPause_.changed.connect([this] {
        if (!switchPause_.isOn()) inputDecision_.decideAgain();
        statusBarIcon_.toolTipChanged();
    }));
    subscriptions_.push_back(desktop_.distributedNotifications.addObserver(
        selectedKeyboardInputSourceChangedNotification, [this](const DistributedNotification& notification) {
            inputChangeWatch_.inputSourceChanged(notification);
        }));
    subscriptions_.push_back(desktop_.distributedNotifications.addObserver(
        message::windowAdjusted,
        [this](const DistributedNotification& notification) { indicator_.windowAdjusted(notification); }));
}

void AppDelegate::observeLaunchersAndMouse() {
    if (desktop_.facts.launchers.areTold) {
        subscriptions_.push_back(desktop_.windowList.addLauncherObserver(
            [this](const auto& open) { launcherNews_.launcherChanged(open); }));
        followWindowWatch_.watchWhileFollowing();
        return;
    }
    subscriptions_.push_back(desktop_.globalEvents.addGlobalMonitor(
        eventMask(EventType::leftMouseUp) | eventMask(EventType::flagsChanged), [this](const Event& event) {
            event.type == EventType::flagsChanged ? launcherWatch_.flagsChanged(event)
                                                  : followWindowWatch_.look();
        }));
}

bool AppDelegate::applicationShouldHandleReopen(bool /*hasVisibleWindows*/) {
    openPreferences();
    return true;
}

void AppDelegate::openPreferences() {
    desktop_.runLoop.dispatchAfter(openPreferencesDelay, [this] { showPreferences(); });

    // At the first request there is no window yet, and the registration covers every window: the handler
    // looks at the title for that.
    const auto* window = preferences_ ? &preferences_->window() : nullptr;
    subscriptions_.push_back(desktop_.notifications.addObserver(
        windowWillCloseNotification, window,
        [this](const Notification& notification) { preferencesWillClose(notification); }));
}

void AppDelegate::showPreferences() {
    if (!preferences_) {
        preferences_ = std::make_unique<AppPrefsWindowController>(
            desktop_, companion_, hotKeyCenter_, desktop_.interfaceFiles.loadPreferences(),
            [this](std::string_view id) { changeInputTo(id); });
    }
    preferences_->windowWillOpen();
    preferences_->window().makeKeyAndOrderFront();
    desktop_.application.activateIgnoringOtherApps();
}

void AppDelegate::preferencesWillClose(const Notification& notification) {
    if (!notification.object || notification.object->title() != preferencesTitle) return;
    if (standardDefaults_.boolForKey(key::hiddenIconInStatusBar)) restart();
}

void AppDelegate::observeValueForKeyPath(std::string_view keyPath) {
    if (keyPath == key::hiddenIconInStatusBar)
        updateStatusBarItem();
    else if (keyPath == key::enableTipOfState)
        stateTip_.inputChnagedNotification();
    else if (keyPath == key::autoInput)
        settingsMirror_.copyAutoInput();
    else if (keyPath == key::enableForceEnglishBrowserAddress)
        settingsMirror_.copyForceEnglishBrowserAddress();
}

void AppDelegate::updateStatusBarItem() {
    statusBarIcon_.setHidden(standardDefaults_.boolForKey(key::hiddenIconInStatusBar));
}

void AppDelegate::restart() {
    auto arguments = desktop_.facts.relaunchArguments;
    if (switchPause_.isOn() && !desktop_.facts.pausedArgument.empty())
        arguments.push_back(desktop_.facts.pausedArgument +
                            std::to_string(static_cast<std::int64_t>(switchPause_.end().value_or(0))));
    desktop_.processes.launch(desktop_.facts.relaunchPath, arguments);
    desktop_.processes.exit(0);
}

ControlledProgram AppDelegate::controlled() {
    return {inputDecision_, inputSwitch_,  switchPause_,
            companion_,     hotKeyCenter_, [this](const PTHotKey& hotKey) { inputHotKeyAction(hotKey); }};
}

Menu AppDelegate::statusMenu() {
    const auto& application = desktop_.application;
    return {
        {application.localizedString("Preferences…"), true, [this] { openPreferences(); }},
        {application.localizedString("Quit Quorvane"), true, [this] { desktop_.application.terminate(); }}};
}

} // namespace quorvane
