#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Signal.h"

namespace quorvane {

enum class ActivationPolicy {
    regular,   ///< Has windows of its own and a place among the running applications the user sees.
    accessory, ///< Runs in the background, though it may show a window now and then.
    prohibited ///< Never has a window.
};

struct RunningApplication {
    std::optional<std::string> bundleIdentifier;
    std::string localizedName;
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    int processIdentifier = 0; ///< 0 when the desktop does not tell.

    bool operator==(const RunningApplication&) const = default;
};

enum class WorkspaceNotification {
    didActivateApplication, ///< The application came to the front.
    didUnhideApplication,   ///< The application was hidden and is shown again: in front, where the desktop
                            ///< does not tell of others.
    didLaunchApplication,   ///< The application was not running and now is.
    didLeaveFront ///< The application in front closed its last window and nobody has come there yet. Only on
                  ///< desktops where nobody can be in front.
};

/// Which applications run, and which one is in front.
class Workspace {
public:
    virtual ~Workspace() = default;

    virtual std::vector<RunningApplication> runningApplications() const = 0;

    /// Cheap enough to be asked at every activation.
    virtual std::vector<RunningApplication>
    runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const = 0;

    /// None before the first activation the desktop tells of, and while nobody is in front.
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    virtual Subscription addObserver(WorkspaceNotification notification,
                                     std::function<void(const RunningApplication&)> handler) {
        return posted_.at(static_cast<std::size_t>(notification)).connect(std::move(handler));
    }

protected:
    /// Calls the observers of this notification.
    void post(WorkspaceNotification notification, const RunningApplication& application) const {
        posted_.at(static_cast<std::size_t>(notification)).emit(application);
    }

private:
    std::array<Signal<const RunningApplication&>, 4> posted_; ///< One for each notification.
};

} // namespace quorvane
