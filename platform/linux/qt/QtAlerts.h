#pragma once

#include <functional>

#include "platform/Alerts.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

class QtAlerts : public Alerts {
public:
    /// The connection must outlive this object.
    explicit QtAlerts(XConnection& x) : x_(x) {}

    AlertAnswer runModal(const Alert& alert) override;
    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override;

private:
    XConnection& x_;
};

} // namespace quorvane
