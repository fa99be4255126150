#pragma once

#include <string_view>

#include "platform/linux/desktop-files/DesktopEntry.h"

namespace quorvane {

/// True if menus show the application: where the current desktops, best first and separated by colons, are
/// as XDG_CURRENT_DESKTOP names them, and programs without a path are looked for in the folders of PATH.
bool isShownInMenus(const DesktopEntry& entry, std::string_view currentDesktops,
                    std::string_view programFolders);

} // namespace quorvane
