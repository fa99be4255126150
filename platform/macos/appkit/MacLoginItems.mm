#include "platform/macos/appkit/MacLoginItems.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

API_AVAILABLE(macos(13.0))
bool setServiceEnabled(SMAppService* service, bool enabled) {
    NSError* error = nil;
    const bool succeeded =
        enabled ? [service registerAndReturnError:&error] : [service unregisterAndReturnError:&error];
    // It may be what is asked for already.
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

/// Older systems do not tell.
std::optional<bool> MacLoginItems::isEnabled(std::string_view identifier) const {
    NSString* helper = toNSString(identifier);
    if (!helper) return std::nullopt;
    if (@available(macOS 13.0, *))
        return [SMAppService loginItemServiceWithIdentifier:helper].status == SMAppServiceStatusEnabled;
    return std::nullopt;
}

} // namespace quorvane
