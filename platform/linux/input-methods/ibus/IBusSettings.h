#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

using GSettings = struct _GSettings; // NOLINT(bugprone-reserved-identifier): GLib's

namespace quorvane {

/// The setting (GSettings) that says which engines the user has enabled.
class IBusSettings {
public:
    /// `changed` is called from the event loop.
    explicit IBusSettings(std::function<void()> changed);
    ~IBusSettings();
    IBusSettings(const IBusSettings&) = delete;
    IBusSettings& operator=(const IBusSettings&) = delete;

    /// Empty when nothing was set ever, or where IBus is not installed.
    std::vector<std::string> preloadEngines() const;

private:
    std::function<void()> changed_;
    std::shared_ptr<GSettings> settings_; ///< Null where IBus is not installed.
    unsigned long handler_ = 0;
};

} // namespace quorvane
