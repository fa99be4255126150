#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Subscription.h"

namespace quorvane {

/// The applications that run without any window, as far as somebody knows: on a session bus, those that own
/// their id as a name. All three are asked often and must not wait for anybody.
class BackgroundApplications {
public:
    virtual ~BackgroundApplications() = default;

    /// Whoever was asked about is followed from then on.
    virtual bool isRunning(std::string_view id) = 0;

    /// Of those that are followed, all that run.
    virtual std::vector<std::string> ids() const = 0;

    /// Calls the handler with the id of each one that starts from now on.
    virtual Subscription onStart(std::function<void(std::string_view id)> handler) = 0;
};

} // namespace quorvane
