#pragma once

#include "platform/Desktop.h"
#include "platform/simulated/SimulatedApplication.h"
#include "platform/simulated/SimulatedDistributedNotificationCenter.h"
#include "platform/simulated/SimulatedHotKeys.h"
#include "platform/simulated/SimulatedImage.h"
#include "platform/simulated/SimulatedInputSources.h"
#include "platform/simulated/SimulatedInterfaceFiles.h"
#include "platform/simulated/SimulatedRunLoop.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWorkspace.h"

namespace quorvane {

/// A whole desktop in memory, with the native desktop's facts. It stands still until it is told what happens.
class SimulatedDesktop {
public:
    SimulatedDesktop();
    SimulatedDesktop(const SimulatedDesktop&) = delete;
    SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

    SimulatedRunLoop runLoop;
    SimulatedUserDefaults defaults;
    NotificationCenter notifications;
    SimulatedDistributedNotificationCenter distributedNotifications{runLoop};
    SimulatedInputSources inputSources{distributedNotifications};
    SimulatedImages images;
    SimulatedWorkspace workspace;
    SimulatedApplicationBundles applicationBundles;
    SimulatedWindowList windowList;
    SimulatedScreens screens;
    SimulatedGlobalEventMonitor globalEvents;
    SimulatedHotKeys hotKeys;
    SimulatedCursor cursor;
    SimulatedInterfaceFiles interfaceFiles{notifications};
    SimulatedStatusBar statusBar;
    SimulatedAlerts alerts;
    SimulatedProcesses processes;
    SimulatedLoginItems loginItems;
    SimulatedLog log;
    SimulatedOpenPanel openPanel;
    SimulatedLinks links;
    SimulatedClock clock;
    SimulatedApplication application;

    /// What the program is given.
    Desktop desktop;
};

} // namespace quorvane
