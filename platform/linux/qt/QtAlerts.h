#pragma once

#include "platform/Alerts.h"

namespace quorvane {

class QtAlerts : public Alerts {
public:
    AlertAnswer runModal(const Alert& alert) override;
};

} // namespace quorvane
