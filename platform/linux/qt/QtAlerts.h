#pragma once

#include <functional>

#include "platform/Alerts.h"
#include "platform/linux/qt/WindowHost.h"

namespace quorvane {

class QtAlerts : public Alerts {
public:
    /// The connection must outlive this object.
    explicit QtAlerts(WindowHost& host) : host_(host) {}

    AlertAnswer runModal(const Alert& alert) override;
    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override;

private:
    WindowHost& host_;
};

} // namespace quorvane
