#pragma once

#include "platform/Alerts.h"
#include "platform/Application.h"
#include "platform/Links.h"

namespace quorvane {

/// Tells the user that something needs the companion application, and where to get it.
class CompanionAlert {
public:
    CompanionAlert(Alerts& alerts, const Application& application, Links& links)
        : alerts_(alerts)
        , application_(application)
        , links_(links) {}

    /// Returns at once.
    void show();

private:
    Alerts& alerts_;
    const Application& application_;
    Links& links_;
};

} // namespace quorvane
