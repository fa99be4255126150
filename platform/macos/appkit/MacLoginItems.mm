#include "platform/macos/appkit/MacLoginItems.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

API_AVAILABLE(macos(13.0))
bool setServiceEnabled(SMAppService* service, bool enabled) {
    const auto status = service.status;
    const bool isOff = status == SMAppServiceStatusNotRegistered || status == SMAppServiceStatusNotFound;
    // The helper of a service that is registered again would be started at once.
    if (enabled ? status == SMAppServiceStatusEnabled : isOff) return true;
    NSError* error = nil;
    const bool succeeded =
        enabled ? [service registerAndReturnError:&error] : [service unregisterAndReturnError:&error];
    // It may have become what was asked for in the meantime.
    return succeeded || error.code == (enabled ? kSMErrorAlreadyRegistered : kSMErrorJobNotFound);
}

} // namespace

bool MacLoginItems::setEnabled(std::string_view identifier, bool enabled) {
    NSString* helper = toNSString(identifier);
    if (!helper) return false;
    if (@available(macOS 13.0, *))
        return setServiceEnabled([SMAppService loginItemServiceWithIdentifier:helper], enabled);
    return SMLoginItemSetEnabled((__bridge CFStringRef)helper, enabled);
}

} // namespace quorvane
