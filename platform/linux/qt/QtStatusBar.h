#pragma once

#include "platform/StatusBar.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The system tray. Says so in one line when there is none; an item made then appears when a tray does.
class QtStatusBar : public StatusBar {
public:
    /// The connection must outlive this object and its items.
    /// Without an X server (null) there are no trays of the older kind.
    explicit QtStatusBar(XConnection* x) : x_(x) {}

    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

private:
    XConnection* x_;
};

} // namespace quorvane
