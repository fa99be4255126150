#pragma once

#include <vector>

#include "platform/linux/desktop-files/DesktopEntries.h"

namespace quorvane {

/// The applications that are installed as far as the user is concerned: those that menus show, and launchers,
/// which no menu need show; a launcher without a desktop file, too, if its program is found. In no order.
std::vector<DesktopEntryRef> choosableApplications(DesktopEntries& entries);

} // namespace quorvane
