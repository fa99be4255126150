#pragma once

#include <functional>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {

/// Events on their way to other applications. To be used only after the application has finished launching:
/// a monitor that comes earlier breaks the delivery of events.
class MacEventMonitor : public GlobalEventMonitor {
public:
    Subscription addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) override;
};

} // namespace quorvane
