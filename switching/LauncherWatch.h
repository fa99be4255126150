#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "indicator/InputIndicator.h"
#include "input/CompanionLink.h"
#include "input/OpenLaunchers.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/OnScreenWindowList.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "switching/AppChangeHandler.h"
#include "switching/InputDecision.h"
#include "switching/RestartableTimer.h"

namespace quorvane {

/// Gives the launchers their input source while their window is on the screen. Opening one makes no
/// application active, so nobody tells of it: the modifier keys that open it are watched, and while they are
/// held, and shortly after, the window list.
///
/// Some desktops do tell when a launcher's window comes or goes. There nothing has to be waited for.
class LauncherWatch {
public:
    LauncherWatch(const Workspace& workspace, const OnScreenWindowList& windowList, RunLoop& runLoop,
                  const CompanionLink& companion, OpenLaunchers& openLaunchers, InputDecision& decision,
                  AppChangeHandler& appChangeHandler, InputIndicator& indicator);
    LauncherWatch(const LauncherWatch&) = delete;
    LauncherWatch& operator=(const LauncherWatch&) = delete;

    /// The left mouse button was released, or modifier keys went down or up.
    void handleEvent(const Event& event);

    /// The desktop tells that a launcher's window has come or gone.
    void launcherWindowsChanged();

    // What the timers do: look whether a window has come ...
    void checkAlfredWillOpen() { checkWillOpen(alfred_); }
    void checkSpotlightWillOpen() { checkWillOpen(spotlight_); }

    // ... and whether it has gone.
    void checkAlfredIfOpenning() { checkIfOpenning(alfred_); }
    void checkSpotlightIfOpenning() { checkIfOpenning(spotlight_); }

    void stopCheckAlfredOrSpotlightWillOpen();

private:
    struct Launcher {
        bool& isOpen;
        bool (*isItsWindow)(const WindowDescription& window);
        std::optional<std::string> bundleIdentifier; ///< Alfred's: of the one that was last seen running.
        RestartableTimer willOpen;
        RestartableTimer stillOpen;
    };

    void handleFlags(std::uint64_t flags, double timestamp);
    void handlePress(std::uint64_t flags, double timestamp);
    bool isAlfredRunning();
    bool isOnScreen(const Launcher& launcher);
    void checkWillOpen(Launcher& launcher);
    void checkIfOpenning(Launcher& launcher);
    void openIfOnScreen(Launcher& launcher);

    const Workspace& workspace_;
    const OnScreenWindowList& windowList_;
    RunLoop& runLoop_;
    const CompanionLink& companion_;
    InputDecision& decision_;
    AppChangeHandler& appChangeHandler_;
    InputIndicator& indicator_;

    Launcher alfred_;
    Launcher spotlight_;
    double lastFlagsTime_ = 0;    ///< Of the last event with a modifier held, in seconds.
    std::uint64_t lastFlags_ = 0; ///< That event's flags.
};

} // namespace quorvane
