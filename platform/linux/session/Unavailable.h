#pragma once

#include "platform/Cursor.h"
#include "platform/GlobalEventMonitor.h"

namespace quorvane {

/// Wayland tells a program of no keys and clicks but its own.
class NoGlobalEvents : public GlobalEventMonitor {
public:
    Subscription addGlobalMonitor(EventMask /*mask*/,
                                  std::function<void(const Event&)> /*handler*/) override {
        return {};
    }
};

/// Nor of the cursor over other programs' windows.
class UnknownCursor : public Cursor {
public:
    std::optional<Point> hotSpot() const override { return std::nullopt; }
};

} // namespace quorvane
