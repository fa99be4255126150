// The login item: starts the application whose bundle it is in, and ends.

#import "platform/macos/AppKit.h"
#include "settings/Maker.h"

namespace {

/// Should the system never answer, at least this process does not stay.
constexpr int64_t longestWait = 60 * static_cast<int64_t>(NSEC_PER_SEC);

/// The system starts a login item also when it is registered, which the application does while it runs: to
/// open it once more would show its preferences.
bool isRunning() {
    NSString* identifier = [[NSString alloc] initWithBytes:quorvane::maker::bundleIdentifier.data()
                                                    length:quorvane::maker::bundleIdentifier.size()
                                                  encoding:NSUTF8StringEncoding];
    return identifier && [NSRunningApplication runningApplicationsWithBundleIdentifier:identifier].count > 0;
}

/// This is `<application>/Contents/Library/LoginItems/<helper>`; nil when it is nowhere like that.
NSURL* applicationAround(NSURL* helper) {
    constexpr int componentsInside = 4;
    NSURL* application = helper;
    for (int component = 0; component < componentsInside; ++component)
        application = application.URLByDeletingLastPathComponent;
    return application;
}

void openAndWait(NSURL* application) {
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = NO;
    dispatch_semaphore_t answered = dispatch_semaphore_create(0);
    [NSWorkspace.sharedWorkspace
        openApplicationAtURL:application
               configuration:configuration
           completionHandler:^(NSRunningApplication*, NSError* error) { // on a thread of the system's
             if (error) NSLog(@"%@ cannot be started: %@", application, error.localizedDescription);
             dispatch_semaphore_signal(answered);
           }];
    dispatch_semaphore_wait(answered, dispatch_time(DISPATCH_TIME_NOW, longestWait));
}

} // namespace

/// Zero in any case: after another status the system would start it again.
int main() {
    @autoreleasepool {
        NSURL* application = applicationAround(NSBundle.mainBundle.bundleURL);
        if (application && !isRunning()) openAndWait(application);
    }
    return 0;
}
