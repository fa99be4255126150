#pragma once

#include <vector>

#import "platform/macos/AppKit.h"

namespace quorvane {

struct TableColumn {
    NSString* identifier; ///< By which the program knows it.
    NSString* title;      ///< In the user's language.
    CGFloat width; ///< What the cells in it need at least; the title gets the room it needs in any case.
};

/// A table with one row selected at most. The first column holds icons and keeps its width, the second one
/// takes the room that is left.
NSTableView* makeTable(NSString* accessibilityLabel, const std::vector<TableColumn>& columns);

/// The view to be laid out, in which the table scrolls: wide enough for its columns.
NSView* makeScrollView(NSTableView* table, CGFloat smallestHeight);

} // namespace quorvane
