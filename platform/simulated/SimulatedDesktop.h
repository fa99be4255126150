#pragma once

#include "platform/Desktop.h"
#include "platform/simulated/Journal.h"
#include "platform/simulated/SimulatedApplication.h"
#include "platform/simulated/SimulatedDistributedNotificationCenter.h"
#include "platform/simulated/SimulatedHotKeys.h"
#include "platform/simulated/SimulatedImage.h"
#include "platform/simulated/SimulatedInputSources.h"
#include "platform/simulated/SimulatedInterfaceFiles.h"
#include "platform/simulated/SimulatedRunLoop.h"
#include "platform/simulated/SimulatedSwitchingAhead.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWorkspace.h"

namespace quorvane {

/// A whole desktop in memory, with the native desktop's facts. It stands still until it is told what happens,
/// and writes down what the program does then.
class SimulatedDesktop {
public:
    SimulatedDesktop();
    SimulatedDesktop(const SimulatedDesktop&) = delete;
    SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

    Journal journal{[this] { return runLoop.now(); }};
    SimulatedRunLoop runLoop{journal};
    SimulatedUserDefaults defaults{journal};
    NotificationCenter notifications;
    SimulatedDistributedNotificationCenter distributedNotifications{journal, runLoop};
    SimulatedInputSources inputSources{journal, distributedNotifications};
    SimulatedImages images{journal};
    SimulatedWorkspace workspace{journal};
    SimulatedApplicationBundles applicationBundles;
    SimulatedWindowList windowList{journal};
    SimulatedScreens screens;
    SimulatedGlobalEventMonitor globalEvents{journal};
    SimulatedHotKeys hotKeys{journal};
    SimulatedCursor cursor;
    SimulatedInterfaceFiles interfaceFiles{journal, notifications};
    SimulatedStatusBar statusBar{journal};
    SimulatedSwitchingAhead switchingAhead{journal}; ///< Part of the desktop once a test says so.
    SimulatedAlerts alerts{journal};
    SimulatedProcesses processes{journal};
    SimulatedLoginItems loginItems{journal};
    SimulatedLog log{journal};
    SimulatedOpenPanel openPanel{journal};
    SimulatedLinks links{journal};
    SimulatedClock clock;
    SimulatedApplication application{journal};

    /// What the program is given.
    Desktop desktop;
};

} // namespace quorvane
