#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Signal.h"
#include "platform/linux/applications/BackgroundApplications.h"

namespace quorvane {

/// Applications that own their id as a name on the session bus: how an application makes itself known on
/// Linux, with or without a window. Names are followed that somebody is interested in, and no others. Until
/// the bus has told, nobody is known to own one.
class BusApplications : public BackgroundApplications {
public:
    /// Interested in these from the start on, in others once they are asked about.
    explicit BusApplications(const std::vector<std::string>& ids = {});
    ~BusApplications() override;

    bool isRunning(std::string_view id) override;
    std::vector<std::string> ids() const override;
    Subscription onStart(std::function<void(std::string_view id)> handler) override;

private:
    struct Followed;

    const Followed* follow(std::string_view id); ///< Null for what can be no name.

    std::map<std::string, std::unique_ptr<Followed>, std::less<>> followed_;
    Signal<std::string_view> started_;
};

} // namespace quorvane
