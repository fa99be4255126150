#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/input-methods/ibus/IBusEnabledEngines.h"

namespace quorvane {

/// The settings (GSettings) that say which sources the user has enabled, followed as they change. What is not
/// installed on this desktop is empty.
class IBusSettings {
public:
    IBusSettings();
    ~IBusSettings();
    IBusSettings(const IBusSettings&) = delete;
    IBusSettings& operator=(const IBusSettings&) = delete;

    const std::vector<std::string>& preloadEngines() const { return preloadEngines_; }
    const std::vector<DesktopInputSource>& desktopSources() const { return desktopSources_; }

private:
    class List;

    void read();

    std::unique_ptr<List> preloadEnginesList_;
    std::unique_ptr<List> desktopSourcesList_;
    std::vector<std::string> preloadEngines_;
    std::vector<DesktopInputSource> desktopSources_;
};

} // namespace quorvane
