#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Subscription.h"

namespace quorvane {

struct WindowDescription {
    std::optional<std::string> ownerName; ///< The owning application's localized name.
    std::optional<std::string> name;      ///< The title; may be withheld by the desktop.
    Rect bounds;                          ///< Global, origin at the top-left of the primary screen.
    int layer = 0;                        ///< 0 for ordinary windows, more for those kept above them.
    bool isOnScreen = false;

    bool operator==(const WindowDescription&) const = default;
};

/// A launcher that the user types into, and where its window is.
struct OpenLauncher {
    std::string bundleIdentifier;
    Rect bounds; ///< Global, origin at the top-left of the primary screen.
};

/// The windows of all applications.
class OnScreenWindowList {
public:
    virtual ~OnScreenWindowList() = default;

    /// Front to back, read afresh at each call. Windows that cannot be seen may be left out or told by their
    /// flag.
    virtual std::vector<WindowDescription> windows() const = 0;

    /// Calls the handler when a launcher is opened, also in another one's place, and with none when it is
    /// closed: on desktops that tell, see `LauncherFacts`. On others nothing ever calls it.
    virtual Subscription
    addLauncherObserver(std::function<void(const std::optional<OpenLauncher>& open)> handler) = 0;
};

} // namespace quorvane
