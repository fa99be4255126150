// 'SMAppService' is only available on macOS 13.0 or newer
#import "platform/macos/AppKit.h"

bool isEnabled(NSString* identifier) {
    id service = [SMAppService loginItemServiceWithIdentifier:identifier];
    return service != nil;
}
