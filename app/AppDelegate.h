#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "app/FocusReset.h"
#include "app/LaunchAtLoginController.h"
#include "app/LoginItemsReminder.h"
#include "app/StatusBarIcon.h"
#include "app/StatusToolTip.h"
#include "control/AgentCommands.h"
#include "indicator/FollowWindowWatch.h"
#include "indicator/InputIndicator.h"
#include "input/CompanionLink.h"
#include "input/InputChangeWatch.h"
#include "input/InputSwitch.h"
#include "input/OpenLaunchers.h"
#include "input/StateTip.h"
#include "platform/Desktop.h"
#include "preferences/AppPrefsWindowController.h"
#include "settings/SettingsMirror.h"
#include "shortcuts/PTHotKeyCenter.h"
#include "switching/AppChangeHandler.h"
#include "switching/InputDecision.h"
#include "switching/LauncherEpisodes.h"
#include "switching/LauncherNews.h"
#include "switching/LauncherWatch.h"
#include "switching/RulesAhead.h"
#include "switching/SwitchPause.h"

namespace quorvane {

/// The hub: owns one object for each subsystem and connects them with the desktop's events. Made once by a
/// desktop's `main`, lives as long as the process. Decides nothing itself.
class AppDelegate {
public:
    /// The desktop must outlive it.
    explicit AppDelegate(Desktop& desktop);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// The one there is, for callbacks that have no object at hand; null before and after its life.
    static AppDelegate* appDelegate();

    /// The start-up: everything is connected when it returns.
    void applicationDidFinishLaunching();

    /// The program was launched again while it runs: the way to the preferences when the status item is
    /// hidden.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    void openPreferences();
    void preferencesWillClose(const Notification& notification);
    void observeValueForKeyPath(std::string_view keyPath);
    void updateStatusBarItem();

    /// Orders the delegate's window in and out, so that a selection takes effect in the application in front.
    void reset() { focusReset_.reset(); }

    /// Starts a new instance of the program and ends this one at once.
    void restart();

    /// A hot key was pressed.
    void inputHotKeyAction(const PTHotKey& hotKey) { changeInputTo(hotKey.identifier()); }

    /// What commands from outside ask and change.
    ControlledProgram controlled();

    /// A hot key's request for an input source.
    void changeInputTo(std::string_view id) { inputSwitch_.changeInputTo(id); }

private:
    Menu statusMenu();
    void observeDefaults();
    void observeWorkspace();
    void observeDistributedNotifications();
    void observeLaunchersAndMouse();
    void showPreferences();

    Desktop& desktop_;
    StandardUserDefaults& standardDefaults_;
    MainInterface interface_;

    FocusReset focusReset_;
    CompanionLink companion_;
    OpenLaunchers openLaunchers_;
    InputSwitch inputSwitch_;
    StateTip stateTip_;
    InputChangeWatch inputChangeWatch_;
    InputIndicator indicator_;
    FollowWindowWatch followWindowWatch_;
    SwitchPause switchPause_;
    InputDecision inputDecision_;
    AppChangeHandler appChangeHandler_;
    LauncherEpisodes launcherEpisodes_;
    LauncherWatch launcherWatch_; ///< This one, or on desktops that tell of launchers, the next.
    LauncherNews launcherNews_;
    std::optional<RulesAhead> rulesAhead_; ///< Where the desktop can switch ahead.
    PTHotKeyCenter hotKeyCenter_;
    LoginItemsReminder loginItemsReminder_;
    LaunchAtLoginController launchAtLogin_;
    SettingsMirror settingsMirror_;
    StatusToolTip statusToolTip_;
    StatusBarIcon statusBarIcon_;
    std::unique_ptr<AppPrefsWindowController> preferences_;

    /// All for the life of the process.
    std::vector<Subscription> subscriptions_;
};

} // namespace quorvane
