#import "platform/macos/shell/SelfCheckDelegate.h"

#include <memory>

#include "control/SelfCheck.h"
#import "platform/macos/MacDesktop.h"
#include "platform/macos/Permissions.h"
#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

#if defined(__arm64__)
constexpr const char* processor = "arm64";
#else
constexpr const char* processor = "x86_64";
#endif

class RunningSelfCheck {
public:
    RunningSelfCheck()
        : check_(desktop_.desktop(), printLine, [this](const TellFact& tell) { tellOwnFacts(tell); }) {
        check_.start();
    }

private:
    void tellOwnFacts(const TellFact& tell) {
        tell("system", "macOS " + fromNSString(NSProcessInfo.processInfo.operatingSystemVersionString) +
                           ", " + processor);
        tell("started from", fromNSString(NSBundle.mainBundle.bundlePath));
        const auto instances =
            desktop_.desktop().workspace.runningApplicationsWithBundleIdentifier(maker::bundleIdentifier);
        tell("another instance", instances.size() > 1 ? "runs" : "none"); // This process is one.
        for (const auto& permission : permissions())
            tell(permission.name, permission.isGiven ? "allowed" : "not allowed");
    }

    MacDesktop desktop_;
    SelfCheck check_;
};

} // namespace
} // namespace quorvane

@implementation SelfCheckDelegate {
    std::unique_ptr<quorvane::RunningSelfCheck> _check;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
    quorvane::callProgram([&] { self->_check = std::make_unique<quorvane::RunningSelfCheck>(); });
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)app {
    return YES;
}

@end
