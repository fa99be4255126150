#include "platform/macos/appkit/MacLinks.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

void MacLinks::openURL(std::string_view url) {
    NSString* text = toNSString(url);
    NSURL* address = text ? [NSURL URLWithString:text] : nil;
    if (address) [NSWorkspace.sharedWorkspace openURL:address];
}

} // namespace quorvane
