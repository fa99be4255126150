#pragma once

#include <functional>
#include <utility>

#include "platform/Alerts.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

class MacAlerts : public Alerts {
public:
    /// `preferencesWindow` answers the window of the preferences, or nil before it was first shown. While
    /// another application is active, this one has no main window of its own.
    explicit MacAlerts(std::function<NSWindow*()> preferencesWindow)
        : preferencesWindow_(std::move(preferencesWindow)) {}

    AlertAnswer runModal(const Alert& alert) override;
    void beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) override;

private:
    NSWindow* windowForSheet() const;

    std::function<NSWindow*()> preferencesWindow_;
};

} // namespace quorvane
