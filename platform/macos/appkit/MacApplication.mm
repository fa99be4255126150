#include "platform/macos/appkit/MacApplication.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

std::string MacApplication::localizedString(std::string_view key) const {
    NSString* text = toNSString(key);
    if (!text) return std::string(key);
    return fromNSString([NSBundle.mainBundle localizedStringForKey:text value:@"" table:nil]);
}

std::string MacApplication::shortVersion() const {
    const auto version =
        fromNSObject([NSBundle.mainBundle objectForInfoDictionaryKey:@"CFBundleShortVersionString"]);
    return version.string() ? *version.string() : std::string();
}

void MacApplication::activateIgnoringOtherApps() {
    // What replaces it is only a request, which the system seldom grants to an agent.
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
}

void MacApplication::terminate() {
    NSApplication* application = NSApplication.sharedApplication;
    // Otherwise an alert or a sheet would have to be answered first.
    for (NSWindow* window in application.windows)
        window.preventsApplicationTerminationWhenModal = NO;
    [application terminate:nil];
}

} // namespace quorvane
