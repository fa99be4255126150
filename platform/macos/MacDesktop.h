#pragma once

#include "platform/Desktop.h"
#include "platform/macos/appkit/MacAlerts.h"
#include "platform/macos/appkit/MacApplication.h"
#include "platform/macos/appkit/MacApplicationBundles.h"
#include "platform/macos/appkit/MacCursor.h"
#include "platform/macos/appkit/MacEventMonitor.h"
#include "platform/macos/appkit/MacImages.h"
#include "platform/macos/appkit/MacLinks.h"
#include "platform/macos/appkit/MacLoginItems.h"
#include "platform/macos/appkit/MacOpenPanel.h"
#include "platform/macos/appkit/MacScreens.h"
#include "platform/macos/appkit/MacWorkspace.h"
#include "platform/macos/foundation/MacClock.h"
#include "platform/macos/foundation/MacDistributedNotifications.h"
#include "platform/macos/foundation/MacLog.h"
#include "platform/macos/foundation/MacProcesses.h"
#include "platform/macos/foundation/MacRunLoop.h"
#include "platform/macos/foundation/MacUserDefaults.h"
#include "platform/macos/input/TISInputSources.h"
#include "platform/macos/keyboard/CarbonHotKeys.h"
#include "platform/macos/shell/MacInterfaceFiles.h"
#include "platform/macos/shell/MacStatusBar.h"
#include "platform/macos/windows/CGWindowList.h"

namespace quorvane {

/// The macOS desktop this process runs on: every port, in the order in which one needs the other.
class MacDesktop {
public:
    /// To be made when the application has finished launching, on the main thread: the event monitors it
    /// hands out would disturb the launch.
    MacDesktop();
    MacDesktop(const MacDesktop&) = delete;
    MacDesktop& operator=(const MacDesktop&) = delete;

    Desktop& desktop() { return desktop_; }

private:
    NotificationCenter notifications_;
    MacRunLoop runLoop_;
    MacUserDefaults defaults_;
    MacDistributedNotifications distributedNotifications_;

    MacWorkspace workspace_;
    MacScreens screens_;
    CGWindowList windowList_;
    MacEventMonitor globalEvents_;
    CarbonHotKeys hotKeys_;
    MacCursor cursor_;
    TISInputSources inputSources_;

    MacApplication application_;
    MacApplicationBundles applicationBundles_;
    MacImages images_;
    MacInterfaceFiles interfaceFiles_;
    MacStatusBar statusBar_;
    MacAlerts alerts_;
    MacOpenPanel openPanel_;
    MacLinks links_;
    MacClock clock_;
    MacProcesses processes_;
    MacLoginItems loginItems_;
    MacLog log_;

    Desktop desktop_;
};

} // namespace quorvane
