#pragma once

#include <string>
#include <vector>

namespace quorvane {

/// What a desktop tells about itself to those who ask why something is as it is. In English.
class DesktopReport {
public:
    struct InstalledApplication {
        std::string bundleIdentifier;
        std::string name; ///< In the user's language.
    };

    virtual ~DesktopReport() = default;

    /// Those that menus show.
    virtual std::vector<InstalledApplication> installedApplications() const = 0;

    /// By what the application in front was recognised; empty when nobody is there or it is not known.
    virtual std::string recognition() const = 0;

    /// Where the input sources come from.
    virtual std::string inputSourceProvider() const = 0;

    /// What is wrong with keeping the settings; empty when nothing is.
    virtual std::string settingsTrouble() const = 0;
};

} // namespace quorvane
