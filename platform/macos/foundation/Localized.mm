#import "platform/macos/foundation/Localized.h"

namespace quorvane {

NSString* localized(NSString* key) {
    return [NSBundle.mainBundle localizedStringForKey:key value:@"" table:nil];
}

} // namespace quorvane
