#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/Workspace.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// The applications, as the system tells of them. Where one leaves the front, another one comes, the Finder
/// at least: nobody is told that it is left. The system does not tell that an agent was launched, and its
/// lists change only while the run loop runs.
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

private:
    void postWhen(NSNotificationName told, WorkspaceNotification notification);

    std::vector<id> observers_;
};

} // namespace quorvane
