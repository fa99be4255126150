#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/Signal.h"
#include "platform/Workspace.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// The applications, as the system tells of them. It does not tell that an agent was launched, and its lists
/// change only while the run loop runs.
class MacWorkspace : public Workspace {
public:
    MacWorkspace();
    MacWorkspace(const MacWorkspace&) = delete;
    MacWorkspace& operator=(const MacWorkspace&) = delete;
    ~MacWorkspace() override;

    std::vector<RunningApplication> runningApplications() const override;
    std::vector<RunningApplication>
    runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const override;
    std::optional<RunningApplication> frontmostApplication() const override;
    Subscription addObserver(WorkspaceNotification notification,
                             std::function<void(const RunningApplication&)> handler) override;

private:
    using Told = Signal<const RunningApplication&>;

    void observe(NSNotificationName name, Told MacWorkspace::*told);

    Told activated_;
    Told unhidden_;
    Told launched_;
    std::vector<id> observers_;
};

} // namespace quorvane
