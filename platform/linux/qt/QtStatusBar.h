#pragma once

#include "platform/StatusBar.h"
#include "platform/UserDefaults.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The system tray. Says so in one line when there is none, and to the user once; an item made then appears
/// when a tray does.
class QtStatusBar : public StatusBar {
public:
    /// Both must outlive this object and its items. Without an X server (null) there are no trays of the
    /// older kind. The defaults remember what the user was told.
    QtStatusBar(XConnection* x, UserDefaults& defaults) : x_(x), defaults_(defaults) {}

    std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

private:
    XConnection* x_;
    UserDefaults& defaults_;
};

} // namespace quorvane
