#pragma once

#include "platform/Alerts.h"

namespace quorvane {

class QtAlerts : public Alerts {
public:
    AlertAnswer runModal(const Alert& alert) override;
    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override;
};

} // namespace quorvane
