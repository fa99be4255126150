#pragma once

#include "platform/DesktopReport.h"
#include "platform/linux/applications/ApplicationIdentities.h"
#include "platform/linux/applications/X11Workspace.h"
#include "platform/linux/defaults/SettingsHealth.h"
#include "platform/linux/input-methods/SessionInputSources.h"

namespace quorvane {

class LinuxDesktopReport : public DesktopReport {
public:
    /// All must outlive it.
    LinuxDesktopReport(ApplicationIdentities& identities, const X11Workspace& workspace,
                       const SessionInputSources& inputSources, const SettingsHealth& health)
        : identities_(identities)
        , workspace_(workspace)
        , inputSources_(inputSources)
        , health_(health) {}

    std::vector<InstalledApplication> installedApplications() const override;
    std::string recognition() const override;
    std::string inputSourceProvider() const override;
    std::string settingsTrouble() const override;

private:
    ApplicationIdentities& identities_;
    const X11Workspace& workspace_;
    const SessionInputSources& inputSources_;
    const SettingsHealth& health_;
};

} // namespace quorvane
