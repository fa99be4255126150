#pragma once

#include "virtual-desktop/ChildProcess.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/XServer.h"
#include "virtual-desktop/XWatcher.h"

namespace quorvane {

using Clock = XWatcher::Clock;

/// A virtual desktop with two applications and the agent, seen and used by a plain X client: what it measures
/// is what a user's programs get. The first application wants the layout of group 0, the second that of
/// group 1, and so does a launcher. Each group has a hot key.
class MeasuredDesktop {
public:
    /// Starts everything but the agent. `withTray` adds a tray for its status item. With other windows, that
    /// many, the indicator follows the one in front.
    explicit MeasuredDesktop(bool withTray, int otherWindows = 0);

    Clock::time_point startAgent();

    /// Starts the agent and waits until it switches.
    void startAgentAndWait();
    qint64 agentPid() const { return agent_.processId(); }

    /// Whom the applications belong to.
    XWatcher& user() { return user_; }

    /// Asks the window manager to bring an application (0 or 1) to the front.
    void activate(int application) { user_.activate(windows_[application]); }

    /// It is this application (0 or 1) that got the focus.
    bool isFocus(const XWatcher::Seen& seen, int application) const;

    /// Presses and releases the hot key of a group.
    void pressHotKey(int group);

    /// Shows a pop-up window like that of a launcher, or takes it away.
    void showLauncher(bool shown);

private:
    xcb_window_t makeWindow(const std::string& wmClass, std::int16_t x, bool isPopUp = false);

    ScratchFolders folders_;
    XServer server_{"us,ru"};
    WindowManager windowManager_{"openbox"};
    SessionBus bus_;
    ChildProcess tray_;
    ChildProcess agent_;
    XWatcher user_;
    xcb_window_t windows_[2];
    xcb_window_t launcher_;
};

} // namespace quorvane
