#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <random>

#include <QProcess>
#include <xcb/xcb.h>

#include "tests/linux/support/ScratchFolders.h"
#include "tests/linux/support/XServer.h"

namespace quorvane {

using Clock = std::chrono::steady_clock;

/// A virtual desktop with two applications and the agent, seen and used by a plain X client: what it measures
/// is what a user's programs get. The first application wants the layout of group 0, the second that of
/// group 1, and so does a launcher. Each group has a hot key.
class MeasuredDesktop {
public:
    /// Starts everything but the agent. `withTray` adds a tray for its status item.
    explicit MeasuredDesktop(bool withTray);
    ~MeasuredDesktop();

    Clock::time_point startAgent();

    /// Starts the agent and waits until it switches.
    void startAgentAndWait();
    qint64 agentPid() const { return agent_.processId(); }

    /// Asks the window manager to bring an application (0 or 1) to the front.
    void activate(int application);

    /// Presses and releases a key, as the hardware would.
    void typeKey();

    /// Presses and releases the hot key of a group.
    void pressHotKey(int group);

    /// Shows a pop-up window like that of a launcher, or takes it away.
    void showLauncher(bool shown);

    struct Seen {
        enum class What { focusIn, layout, key } what;
        int application; ///< The one that got the focus or the key.
        int group;       ///< The layout's, or the one the key was pressed in.
        Clock::time_point time;
    };

    /// The next thing this desktop's applications see; none when the time is over.
    std::optional<Seen> nextSeen(Clock::time_point deadline);

    /// The group that typing uses now.
    int currentGroup();

private:
    void connect();
    void fake(std::uint8_t type, std::uint8_t keycode);
    xcb_window_t makeWindow(const char* wmClass, int x, bool isPopUp);
    std::optional<Seen> interpret(const xcb_generic_event_t& event);
    int applicationOf(xcb_window_t window) const { return window == windows_[0] ? 0 : 1; }

    ScratchFolders folders_;
    XServer server_;
    std::unique_ptr<WindowManager> windowManager_;
    QProcess bus_;
    QProcess tray_;
    QProcess agent_;

    xcb_connection_t* xcb_ = nullptr;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t windows_[2] = {};
    xcb_window_t launcher_ = XCB_NONE;
    xcb_atom_t activeWindow_ = XCB_NONE;
    std::uint8_t xkbEvent_ = 0;
};

/// A pause of random length, so that nothing falls into step with what is measured.
std::chrono::microseconds randomPause(std::chrono::milliseconds least, std::chrono::milliseconds most);

} // namespace quorvane
