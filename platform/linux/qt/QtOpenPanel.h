#pragma once

#include "platform/OpenPanel.h"
#include "platform/linux/applications/DesktopEntries.h"

namespace quorvane {

/// A file dialog that starts where desktop files are installed. An executable is taken for the application
/// whose desktop file starts it.
class QtOpenPanel : public OpenPanel {
public:
    explicit QtOpenPanel(DesktopEntries& entries) : entries_(entries) {}

    void beginChoosingApplication(
        std::function<void(std::optional<std::string> bundleIdentifier)> completion) override;

    /// None for a file that is no application's.
    std::optional<std::string> applicationOfFile(const std::string& path) const;

private:
    DesktopEntries& entries_;
};

} // namespace quorvane
