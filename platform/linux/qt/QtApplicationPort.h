#pragma once

#include "platform/Application.h"

namespace quorvane {

/// This program as a Qt application.
class QtApplicationPort : public Application {
public:
    std::string localizedString(std::string_view key) const override;
    std::string shortVersion() const override;
    void activateIgnoringOtherApps() override;
    void terminate() override;
};

} // namespace quorvane
