#pragma once

#include "platform/linux/applications/LauncherWindows.h"
#include "platform/linux/applications/SessionWorkspace.h"
#include "platform/linux/applications/WindowOwners.h"

namespace quorvane {

/// What all sessions know of applications in the same way, once a session tells them of its windows.
struct SessionApplications {
    /// `background` may be null. Both must outlive this object.
    SessionApplications(DesktopEntries& entries, BackgroundApplications* background)
        : owners(entries)
        , workspace(launchers, entries, background) {}

    WindowOwners owners;
    LauncherWindows launchers;
    SessionWorkspace workspace;
};

} // namespace quorvane
