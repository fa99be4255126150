#import "platform/macos/appkit/MacWorkspace.h"

#include <string>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

ActivationPolicy policyOf(NSApplicationActivationPolicy policy) {
    switch (policy) {
    case NSApplicationActivationPolicyRegular:
        return ActivationPolicy::regular;
    case NSApplicationActivationPolicyAccessory:
        return ActivationPolicy::accessory;
    default:
        return ActivationPolicy::prohibited;
    }
}

/// Of nil, all that can be said is that it has no bundle identifier.
RunningApplication describe(NSRunningApplication* _Nullable application) {
    NSString* bundleIdentifier = application.bundleIdentifier;
    return {.bundleIdentifier =
                bundleIdentifier ? std::optional(fromNSString(bundleIdentifier)) : std::nullopt,
            .localizedName = fromNSString(application.localizedName),
            .activationPolicy = policyOf(application.activationPolicy),
            // -1 for an application that has no process any more.
            .processIdentifier = application.processIdentifier > 0 ? application.processIdentifier : 0};
}

std::vector<RunningApplication> describeAll(NSArray<NSRunningApplication*>* applications) {
    std::vector<RunningApplication> described;
    described.reserve(applications.count);
    for (NSRunningApplication* application in applications)
        described.push_back(describe(application));
    return described;
}

} // namespace

MacWorkspace::MacWorkspace() {
    postWhen(NSWorkspaceDidActivateApplicationNotification, WorkspaceNotification::didActivateApplication);
    postWhen(NSWorkspaceDidUnhideApplicationNotification, WorkspaceNotification::didUnhideApplication);
    postWhen(NSWorkspaceDidLaunchApplicationNotification, WorkspaceNotification::didLaunchApplication);
}

MacWorkspace::~MacWorkspace() {
    for (id observer : observers_)
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:observer];
}

std::vector<RunningApplication> MacWorkspace::runningApplications() const {
    return describeAll(NSWorkspace.sharedWorkspace.runningApplications);
}

std::vector<RunningApplication>
MacWorkspace::runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const {
    NSString* identifier = toNSString(bundleIdentifier);
    if (!identifier) return {};
    return describeAll([NSRunningApplication runningApplicationsWithBundleIdentifier:identifier]);
}

std::optional<RunningApplication> MacWorkspace::frontmostApplication() const {
    NSRunningApplication* front = NSWorkspace.sharedWorkspace.frontmostApplication;
    return front ? std::optional(describe(front)) : std::nullopt;
}

void MacWorkspace::postWhen(NSNotificationName told, WorkspaceNotification notification) {
    // Without a queue, the block is called on the main thread, which posts.
    observers_.push_back([NSWorkspace.sharedWorkspace.notificationCenter
        addObserverForName:told
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification* about) {
                  id application = about.userInfo[NSWorkspaceApplicationKey];
                  const bool isOne = [application isKindOfClass:[NSRunningApplication class]];
                  callProgram([&] { post(notification, describe(isOne ? application : nil)); });
                }]);
}

} // namespace quorvane
