#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/linux/desktop-files/DesktopEntries.h"

namespace quorvane {

/// The bundle identifier under which the workspace reports the application that a file belongs to. A desktop
/// file counts by the place where it is installed, or elsewhere by what it starts; an executable by the
/// desktop file that starts it, or else by its name. None for any other file.
std::optional<std::string> bundleIdentifierOfFile(DesktopEntries& entries, const std::filesystem::path& file);

} // namespace quorvane
