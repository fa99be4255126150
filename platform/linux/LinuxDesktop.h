#pragma once

#include "platform/Desktop.h"
#include "platform/linux/AutostartLoginItems.h"
#include "platform/linux/LinuxClock.h"
#include "platform/linux/LinuxLog.h"
#include "platform/linux/LinuxProcesses.h"
#include "platform/linux/applications/OtherNames.h"
#include "platform/linux/control/LinuxDesktopReport.h"
#include "platform/linux/dbus/BusApplications.h"
#include "platform/linux/dbus/DBusNotificationCenter.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/desktop-files/LinuxApplicationBundles.h"
#include "platform/linux/gnome/ExtensionNotices.h"
#include "platform/linux/input-methods/SessionInputSources.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5InputSources.h"
#include "platform/linux/input-methods/ibus/IBusInputSources.h"
#include "platform/linux/open-panel/QtOpenPanel.h"
#include "platform/linux/preferences/SettingsNotices.h"
#include "platform/linux/qt/QtAlerts.h"
#include "platform/linux/qt/QtApplicationPort.h"
#include "platform/linux/qt/QtImages.h"
#include "platform/linux/qt/QtInterfaceFiles.h"
#include "platform/linux/qt/QtLinks.h"
#include "platform/linux/qt/QtRunLoop.h"
#include "platform/linux/qt/QtStatusBar.h"
#include "platform/linux/session/Session.h"

namespace quorvane {

/// The desktop this process runs on: a session and what all sessions share, every port in the order in which
/// one needs the other.
class LinuxDesktop {
public:
    enum class Purpose {
        runTheProgram,
        lookAround ///< Settings stay as they are, also where some are out of date.
    };

    /// Needs a QApplication.
    explicit LinuxDesktop(const SessionStart& startSession, Purpose purpose = Purpose::runTheProgram);
    LinuxDesktop(const LinuxDesktop&) = delete;
    LinuxDesktop& operator=(const LinuxDesktop&) = delete;

    Desktop& desktop() { return desktop_; }
    QtApplicationPort& application() { return application_; }
    const DesktopReport& report() const { return report_; }

    /// Now, instead of a little later.
    void saveSettings() { defaults_.flushPendingWrites(); }

private:
    std::vector<InputMethodDaemon*> daemons();
    void activated(const RunningApplication& application);

    /// The user switches Fcitx5 with modifier keys and the mouse; Fcitx5 does not always tell.
    void watchSwitchesByHand();

    QtRunLoop runLoop_;
    NotificationCenter notifications_;
    LinuxUserDefaults defaults_;
    DBusNotificationCenter distributedNotifications_;
    BusApplications busApplications_;

    DesktopEntries desktopEntries_;
    SessionApplications applications_;
    std::optional<OtherNames> otherNames_; ///< Made before the session tells of windows.
    std::unique_ptr<Session> session_;
    SessionParts parts_;
    std::optional<IBusInputSources> ibus_; ///< None where the session has its engines.
    Fcitx5InputSources fcitx5_;
    SessionInputSources inputSources_;
    std::optional<std::string> frontApplication_;
    Subscription activationsForInput_; ///< Made before those of the program, who decides next.
    Subscription departuresForInput_;
    Subscription fcitx5Availability_;
    Subscription switchesByHand_; ///< While there is a daemon to ask about them.
    Subscription selectionChanges_;

    QtApplicationPort application_;
    LinuxApplicationBundles applicationBundles_;
    QtImages images_;
    QtInterfaceFiles interfaceFiles_;
    SettingsNotices settingsNotices_;
    std::optional<ExtensionNotices> extensionNotices_;
    Subscription activations_;
    Subscription frontWindowChanges_;
    Subscription launcherChanges_;
    QtStatusBar statusBar_;
    QtAlerts alerts_;
    QtOpenPanel openPanel_;
    QtLinks links_;
    LinuxClock clock_;
    LinuxProcesses processes_;
    AutostartLoginItems loginItems_;
    LinuxLog log_;
    LinuxDesktopReport report_{applications_.owners, applications_.workspace, inputSources_,
                               defaults_.health()};

    Desktop desktop_;
};

} // namespace quorvane
