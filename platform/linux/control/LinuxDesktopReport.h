#pragma once

#include "platform/DesktopReport.h"
#include "platform/linux/applications/SessionWorkspace.h"
#include "platform/linux/applications/WindowOwners.h"
#include "platform/linux/defaults/SettingsHealth.h"
#include "platform/linux/input-methods/SessionInputSources.h"

namespace quorvane {

class LinuxDesktopReport : public DesktopReport {
public:
    /// All must outlive it.
    LinuxDesktopReport(const WindowOwners& owners, const SessionWorkspace& workspace,
                       const SessionInputSources& inputSources, const SettingsHealth& health)
        : owners_(owners)
        , workspace_(workspace)
        , inputSources_(inputSources)
        , health_(health) {}

    std::vector<InstalledApplication> installedApplications() const override;
    std::string recognition() const override;
    std::string inputSourceProvider() const override;
    std::string settingsTrouble() const override;

private:
    const WindowOwners& owners_;
    const SessionWorkspace& workspace_;
    const SessionInputSources& inputSources_;
    const SettingsHealth& health_;
};

} // namespace quorvane
