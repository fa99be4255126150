#include "platform/linux/control/LinuxDesktopReport.h"

#include "platform/linux/desktop-files/ChoosableApplications.h"
#include "platform/linux/preferences/SettingsNotices.h"

namespace quorvane {

std::vector<DesktopReport::InstalledApplication> LinuxDesktopReport::installedApplications() const {
    std::vector<InstalledApplication> applications;
    for (const auto& entry : choosableApplications(owners_.entries()))
        applications.push_back({entry->id, entry->name});
    return applications;
}

std::string LinuxDesktopReport::recognition() const {
    const auto window = workspace_.activeWindow();
    const auto* owner = window == noWindow ? nullptr : owners_.ownerOf(window);
    return owner ? owner->recognisedBy : std::string();
}

std::string LinuxDesktopReport::inputSourceProvider() const {
    return std::string(inputSources_.provider());
}

std::string LinuxDesktopReport::settingsTrouble() const {
    const auto unsaved = health_.unsaved();
    return unsaved ? textOfUnsaved(*unsaved) : std::string();
}

} // namespace quorvane
