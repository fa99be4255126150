#include "platform/linux/desktop-files/MenuEntries.h"

#include <algorithm>

#include <unistd.h>

namespace quorvane {
namespace {

/// True if the predicate is for one of the parts that are separated by colons.
template <class Predicate>
bool anyPart(std::string_view parts, Predicate predicate) {
    while (!parts.empty()) {
        const auto part = parts.substr(0, parts.find(':'));
        if (predicate(std::string(part))) return true;
        parts.remove_prefix(std::min(part.size() + 1, parts.size()));
    }
    return false;
}

bool isProgram(const std::string& path) {
    return access(path.c_str(), X_OK) == 0;
}

} // namespace

bool isShownInMenus(const DesktopEntry& entry, std::string_view currentDesktops,
                    std::string_view programFolders) {
    if (entry.noDisplay || entry.isHidden) return false;
    const auto isCurrent = [&](const std::string& desktop) {
        return anyPart(currentDesktops, [&](const std::string& part) { return part == desktop; });
    };
    if (!entry.onlyShowIn.empty() && std::ranges::none_of(entry.onlyShowIn, isCurrent)) return false;
    if (std::ranges::any_of(entry.notShowIn, isCurrent)) return false;
    if (entry.tryExec.empty()) return true;
    if (entry.tryExec.front() == '/') return isProgram(entry.tryExec);
    return anyPart(programFolders,
                   [&](const std::string& folder) { return isProgram(folder + "/" + entry.tryExec); });
}

} // namespace quorvane
