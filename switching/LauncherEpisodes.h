#pragma once

#include <optional>
#include <string>

#include "indicator/InputIndicator.h"
#include "platform/Workspace.h"
#include "switching/AppChangeHandler.h"
#include "switching/InputDecision.h"

namespace quorvane {

/// What the program does when a launcher is opened and when it is closed, however that was noticed.
class LauncherEpisodes {
public:
    LauncherEpisodes(const Workspace& workspace, InputDecision& decision, AppChangeHandler& appChangeHandler,
                     InputIndicator& indicator)
        : workspace_(workspace)
        , decision_(decision)
        , appChangeHandler_(appChangeHandler)
        , indicator_(indicator) {}

    /// Gives the launcher its input source. `isOpen` is its flag in `OpenLaunchers`.
    void begin(bool& isOpen, const std::optional<std::string>& bundleIdentifier);

    /// Gives the application in front its own back, and the indicator to its window.
    void end(bool& isOpen);

    /// Has the application in front get its source back also when none was ever activated. To be called
    /// before an episode begins.
    void rememberFrontmost();

private:
    const Workspace& workspace_;
    InputDecision& decision_;
    AppChangeHandler& appChangeHandler_;
    InputIndicator& indicator_;
};

} // namespace quorvane
