#pragma once

#include <string>
#include <vector>

#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/ApplicationBundles.h"
#include "platform/Cursor.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/HotKeys.h"
#include "platform/Image.h"
#include "platform/InterfaceFiles.h"
#include "platform/LauncherFacts.h"
#include "platform/Links.h"
#include "platform/LoginItems.h"
#include "platform/NotificationCenter.h"
#include "platform/OnScreenWindowList.h"
#include "platform/OpenPanel.h"
#include "platform/Processes.h"
#include "platform/RunLoop.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"
#include "platform/SwitchingAhead.h"
#include "platform/SystemLog.h"
#include "platform/TextInputSources.h"
#include "platform/UserDefaults.h"
#include "platform/WallClock.h"
#include "platform/Workspace.h"

namespace quorvane {

/// What a desktop knows about itself. The defaults are those of the native one.
struct DesktopFacts {
    /// How long an application that has just come to the front needs until it takes a new input source.
    double switchDelay = 0.1; // seconds

    /// How long after the keyboard focus moved to another screen the desktop takes to settle.
    double screenChangeDelay = 0.2; // seconds

    LauncherFacts launchers;

    /// Whether input sources come and go while a program runs, with a daemon behind them. The native desktop
    /// keeps what a window showed when it was loaded.
    bool inputSourcesComeAndGo = false;

    /// The shell command that shows the user which programs start at login.
    std::string loginItemsCommand = "open /System/Library/PreferencePanes/Accounts.prefPane";

    /// Where users of this desktop review the program, and its Pro edition; empty: in the native desktop's
    /// store.
    std::string reviewPage;
    std::string reviewPageOfPro;

    /// The address of the help that came with the program; empty: none did.
    std::string helpPage;

    /// What starts a new instance of this program.
    std::string relaunchPath = "/usr/bin/open";
    std::vector<std::string> relaunchArguments;

    /// What tells a new instance that the user has paused switching: an argument that ends in the time until
    /// when, in seconds since 1970, or 0. Empty: nothing does.
    std::string pausedArgument;
};

/// Everything the program asks of a desktop, handed out in one place. Seen whole only by the program's hub
/// and by a backend.
struct Desktop {
    DesktopFacts facts;
    Alerts& alerts;
    Application& application;
    ApplicationBundles& applicationBundles;
    const WallClock& clock;
    Cursor& cursor;
    DistributedNotificationCenter& distributedNotifications;
    GlobalEventMonitor& globalEvents;
    HotKeys& hotKeys;
    Images& images;
    InterfaceFiles& interfaceFiles;
    Links& links;
    SystemLog& log;
    LoginItems& loginItems;
    NotificationCenter& notifications;
    OnScreenWindowList& windowList;
    OpenPanel& openPanel;
    Processes& processes;
    RunLoop& runLoop;
    Screens& screens;
    StatusBar& statusBar;
    SwitchingAhead* switchingAhead = nullptr; ///< Null where only the program switches.
    TextInputSources& inputSources;
    UserDefaultsStores& defaults;
    Workspace& workspace;
};

} // namespace quorvane
