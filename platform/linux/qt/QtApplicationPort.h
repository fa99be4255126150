#pragma once

#include "platform/Application.h"

namespace quorvane {

/// This program as a Qt application.
class QtApplicationPort : public Application {
public:
    std::string localizedString(std::string_view key) const override;
    void activateIgnoringOtherApps() override;

    /// Also when the event loop does not run yet: it then ends as soon as it starts.
    void terminate() override;

    bool isTerminated() const { return isTerminated_; }

private:
    bool isTerminated_ = false;
};

} // namespace quorvane
