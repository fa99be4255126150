#pragma once

#include "platform/Application.h"

namespace quorvane {

/// This program as its bundle describes it.
class MacApplication : public Application {
public:
    std::string localizedString(std::string_view key) const override;
    std::string shortVersion() const override;
    void activateIgnoringOtherApps() override;
    void terminate() override;
};

} // namespace quorvane
