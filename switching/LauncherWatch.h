#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "indicator/InputIndicator.h"
#include "input/OpenLaunchers.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/OnScreenWindowList.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "switching/LauncherEpisodes.h"
#include "switching/RestartableTimer.h"

namespace quorvane {

/// Gives the launchers their input source while their window is on the screen. Opening one makes no
/// application active, so nobody tells of it: the modifier keys that open it are watched, and while they are
/// held, and shortly after, the window list.
class LauncherWatch {
public:
    LauncherWatch(const Workspace& workspace, const OnScreenWindowList& windowList, RunLoop& runLoop,
                  OpenLaunchers& openLaunchers, LauncherEpisodes& episodes, InputIndicator& indicator);
    LauncherWatch(const LauncherWatch&) = delete;
    LauncherWatch& operator=(const LauncherWatch&) = delete;

    /// Modifier keys went down or up.
    void flagsChanged(const Event& event);

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

    void handlePress(std::uint64_t flags, double timestamp);
    bool isAlfredRunning();
    bool isOnScreen(const Launcher& launcher);
    void checkWillOpen(Launcher& launcher);
    void checkIfOpenning(Launcher& launcher);
    void openIfOnScreen(Launcher& launcher);

    const Workspace& workspace_;
    const OnScreenWindowList& windowList_;
    RunLoop& runLoop_;
    LauncherEpisodes& episodes_;
    InputIndicator& indicator_;

    Launcher alfred_;
    Launcher spotlight_;
    double lastFlagsTime_ = 0;    ///< Of the last event with a modifier held, in seconds.
    std::uint64_t lastFlags_ = 0; ///< That event's flags.
};

} // namespace quorvane
