#include "platform/linux/desktop-files/LauncherTable.h"

#include <algorithm>
#include <array>
#include <functional>

namespace quorvane {
namespace {

using enum LauncherWindowKind;

constexpr std::array launchers = {
    KnownLauncher{"Albert", "albert", "albert", managed},
    KnownLauncher{"dmenu", "dmenu", "dmenu", popUp},
    KnownLauncher{"GNOME Activities", "gnome-shell", "org.gnome.Shell", popUp},
    KnownLauncher{"gmrun", "Gmrun", "gmrun", managed},
    KnownLauncher{"KRunner", "krunner", "org.kde.krunner", managed},
    KnownLauncher{"Kupfer", "Kupfer.py", "kupfer", managed},
    KnownLauncher{"LXQt Runner", "lxqt-runner", "lxqt-runner", managed},
    KnownLauncher{"Rofi", "Rofi", "rofi", popUp},
    KnownLauncher{"Synapse", "Synapse", "synapse", managed},
    KnownLauncher{"Ulauncher", "Ulauncher", "ulauncher", managed},
    KnownLauncher{"Xfce Application Finder", "Xfce4-appfinder", "xfce4-appfinder", managed},
};

template <class Property>
const KnownLauncher* find(Property property, std::string_view wanted) {
    const auto found = std::find_if(launchers.begin(), launchers.end(), [&](const KnownLauncher& launcher) {
        return std::invoke(property, launcher) == wanted;
    });
    return found == launchers.end() ? nullptr : &*found;
}

} // namespace

const KnownLauncher* launcherOfClass(std::string_view wmClass) {
    return find(&KnownLauncher::wmClass, wmClass);
}

const KnownLauncher* launcherOfDesktopId(std::string_view desktopId) {
    return find(&KnownLauncher::desktopId, desktopId);
}

std::vector<std::string> launcherIdentifiers() {
    std::vector<std::string> identifiers;
    identifiers.reserve(std::size(launchers));
    for (const auto& launcher : launchers)
        identifiers.emplace_back(launcher.desktopId);
    return identifiers;
}

} // namespace quorvane
