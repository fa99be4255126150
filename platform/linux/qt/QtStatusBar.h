#pragma once

#include "platform/StatusBar.h"

namespace quorvane {

/// The system tray. Says so in one line when there is none; an item made then appears when a tray does.
class QtStatusBar : public StatusBar {
public:
    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;
};

} // namespace quorvane
