#include "platform/macos/appkit/MacCursor.h"

#import "platform/macos/AppKit.h"

namespace quorvane {

std::optional<Point> MacCursor::hotSpot() const {
    NSCursor* cursor = NSCursor.currentSystemCursor;
    if (!cursor) return std::nullopt;
    return Point{cursor.hotSpot.x, cursor.hotSpot.y};
}

} // namespace quorvane
