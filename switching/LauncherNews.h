#pragma once

#include <optional>
#include <string>

#include "indicator/InputIndicator.h"
#include "input/OpenLaunchers.h"
#include "platform/OnScreenWindowList.h"
#include "switching/LauncherEpisodes.h"

namespace quorvane {

/// Gives launchers their input source on desktops that tell when one is opened or closed. Nothing is waited
/// for there, and nothing is decided twice: what the user selects while a launcher is open stays.
class LauncherNews {
public:
    LauncherNews(OpenLaunchers& openLaunchers, LauncherEpisodes& episodes, InputIndicator& indicator)
        : openLaunchers_(openLaunchers)
        , episodes_(episodes)
        , indicator_(indicator) {}

    /// The one that is open now, if any; told again, its window has only moved. An activation has ended the
    /// episode of one that is closed after it.
    void launcherChanged(const std::optional<OpenLauncher>& open);

private:
    OpenLaunchers& openLaunchers_;
    LauncherEpisodes& episodes_;
    InputIndicator& indicator_;
    std::string openIdentifier_; ///< Of the one that was told last.
};

} // namespace quorvane
