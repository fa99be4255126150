#pragma once

#include <string>
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
    void observe(NSNotificationName name, void (MacWorkspace::*received)(const RunningApplication&));
    void activated(const RunningApplication& application);
    void unhidden(const RunningApplication& application);
    void launched(const RunningApplication& application);

    Signal<const RunningApplication&> activated_;
    Signal<const RunningApplication&> unhidden_;
    Signal<const RunningApplication&> launched_;
    int shownAgain_ = 0; ///< The process that was shown again while another one was in front; 0: none.
    std::vector<id> observers_;
};

} // namespace quorvane
