#pragma once

#include <memory>

#include "platform/StatusBar.h"

namespace quorvane {

/// The right-hand part of the menu bar.
class MacStatusBar : public StatusBar {
public:
    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;
};

} // namespace quorvane
