#import "platform/macos/tables/DraggedRow.h"

#include <limits>

namespace quorvane {

bool writeRows(NSIndexSet* rows, NSPasteboard* pasteboard, id owner) {
    NSError* error = nil;
    NSData* data = [NSKeyedArchiver archivedDataWithRootObject:rows requiringSecureCoding:YES error:&error];
    if (!data) return false;
    [pasteboard declareTypes:@[ NSPasteboardTypeString ] owner:owner];
    return [pasteboard setData:data forType:NSPasteboardTypeString];
}

std::optional<int> readDraggedRow(NSPasteboard* pasteboard) {
    NSData* data = [pasteboard dataForType:NSPasteboardTypeString];
    if (!data) return std::nullopt;
    NSError* error = nil;
    NSIndexSet* rows = [NSKeyedUnarchiver unarchivedObjectOfClass:[NSIndexSet class]
                                                         fromData:data
                                                            error:&error];
    // The row of an empty set, NSNotFound, is greater than any.
    if (!rows || rows.firstIndex > static_cast<NSUInteger>(std::numeric_limits<int>::max()))
        return std::nullopt;
    return static_cast<int>(rows.firstIndex);
}

} // namespace quorvane
