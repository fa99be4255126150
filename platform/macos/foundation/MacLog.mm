#include "platform/macos/foundation/MacLog.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

void MacLog::log(std::string_view line) {
    NSLog(@"%@", shownText(line));
}

} // namespace quorvane
