#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

// The launchers of the native desktop.
inline constexpr std::string_view spotlightBundleIdentifier = "com.apple.Spotlight";
inline constexpr std::string_view alfredBundleIdentifierPrefix = "com.runningwithcrayons.Alfred";

/// What a desktop knows about launchers: search fields that appear above the application in front, which
/// stays there. The defaults are those of the native desktop.
struct LauncherFacts {
    /// The desktop tells when a launcher is opened or closed, see `OnScreenWindowList`. On others the program
    /// watches the modifier keys and the window list.
    bool areTold = false;

    std::vector<std::string> identifiers = {std::string(spotlightBundleIdentifier)};
    std::vector<std::string> identifierPrefixes = {std::string(alfredBundleIdentifierPrefix)};

    /// What once stood before the identifiers of launchers in the user's settings; empty: nothing did.
    std::string formerPrefix;
};

} // namespace quorvane
