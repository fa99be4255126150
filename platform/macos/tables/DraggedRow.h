#pragma once

#include <optional>

#import "platform/macos/AppKit.h"

namespace quorvane {

// A row of a table on its way to another place, on the pasteboard of the drag.

/// Whether it is there now. `owner` is that of what is on the pasteboard.
bool writeRows(NSIndexSet* _Nonnull rows, NSPasteboard* _Nonnull pasteboard, id _Nonnull owner);

/// The first of the rows; none when there are none, or something else.
std::optional<int> readDraggedRow(NSPasteboard* _Nonnull pasteboard);

} // namespace quorvane
