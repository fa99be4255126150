#include "platform/linux/desktop-files/LauncherTable.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace quorvane {
namespace {

using enum LauncherWindowKind;

constexpr std::array launchers = {
    KnownLauncher{"Albert", "albert", "albert", managed},
    KnownLauncher{"bemenu", "bemenu", "bemenu", popUp},
    KnownLauncher{"dmenu", "dmenu", "dmenu", popUp},
    KnownLauncher{"fuzzel", "fuzzel", "fuzzel", popUp},
    KnownLauncher{"gmrun", "Gmrun", "gmrun", managed},
    KnownLauncher{"GNOME Activities", "gnome-shell", "org.gnome.Shell", popUp},
    KnownLauncher{"KRunner", "krunner", "org.kde.krunner", managed},
    KnownLauncher{"Kupfer", "Kupfer.py", "kupfer", managed},
    KnownLauncher{"LXQt Runner", "lxqt-runner", "lxqt-runner", managed},
    KnownLauncher{"Rofi", "Rofi", "rofi", popUp},
    KnownLauncher{"Synapse", "Synapse", "synapse", managed},
    KnownLauncher{"tofi", "tofi", "tofi", popUp},
    KnownLauncher{"Ulauncher", "Ulauncher", "ulauncher", managed},
    KnownLauncher{"wofi", "wofi", "wofi", popUp},
    KnownLauncher{"Xfce Application Finder", "Xfce4-appfinder", "xfce4-appfinder", managed},
};

bool isSameIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(
        left, right, {}, [](unsigned char letter) { return std::tolower(letter); },
        [](unsigned char letter) { return std::tolower(letter); });
}

template <class Predicate>
const KnownLauncher* find(Predicate isIt) {
    const auto* const found = std::ranges::find_if(launchers, isIt);
    return found == launchers.end() ? nullptr : &*found;
}

} // namespace

const KnownLauncher* launcherOfClass(std::string_view wmClass) {
    return find([&](const KnownLauncher& launcher) {
        return isSameIgnoringCase(launcher.wmClass, wmClass) || launcher.desktopId == wmClass;
    });
}

const KnownLauncher* launcherOfProgram(std::string_view program) {
    // One program of a launcher often is the whole of it, told what to launch: tofi-run, bemenu-run.
    for (const std::string_view suffix : {"-run", "-drun"})
        if (program.ends_with(suffix)) program.remove_suffix(suffix.size());
    return find([&](const KnownLauncher& launcher) { return isSameIgnoringCase(launcher.wmClass, program); });
}

const KnownLauncher* launcherOfDesktopId(std::string_view desktopId) {
    return find([&](const KnownLauncher& launcher) { return launcher.desktopId == desktopId; });
}

std::vector<std::string> launcherIdentifiers() {
    std::vector<std::string> identifiers;
    identifiers.reserve(std::size(launchers));
    for (const auto& launcher : launchers)
        identifiers.emplace_back(launcher.desktopId);
    return identifiers;
}

} // namespace quorvane
