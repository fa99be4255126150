#import "platform/macos/preferences/MakeTable.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr CGFloat smallestWidth = 480;
constexpr CGFloat besideColumns = 40; // the frame, the scroller, and what a table's style puts at its sides

NSTableColumn* makeColumn(const TableColumn& described) {
    NSTableColumn* column = [[NSTableColumn alloc] initWithIdentifier:described.identifier];
    column.title = described.title;
    [column sizeToFit]; // as wide as the title
    const CGFloat width = std::max(column.width, described.width);
    column.minWidth = width;
    column.width = width;
    column.resizingMask = NSTableColumnUserResizingMask;
    return column;
}

} // namespace

NSTableView* makeTable(NSString* accessibilityLabel, const std::vector<TableColumn>& columns) {
    NSTableView* table = [[NSTableView alloc] initWithFrame:NSZeroRect];
    for (const auto& described : columns)
        [table addTableColumn:makeColumn(described)];
    NSTableColumn* icons = table.tableColumns[0];
    icons.resizingMask = NSTableColumnNoResizing;
    icons.maxWidth = icons.width;
    table.tableColumns[1].resizingMask = NSTableColumnAutoresizingMask | NSTableColumnUserResizingMask;
    table.columnAutoresizingStyle = NSTableViewUniformColumnAutoresizingStyle;
    table.allowsColumnReordering = NO;
    table.allowsMultipleSelection = NO;
    table.accessibilityLabel = accessibilityLabel;
    return table;
}

NSView* makeScrollView(NSTableView* table, CGFloat smallestHeight) {
    CGFloat width = besideColumns;
    for (NSTableColumn* column in table.tableColumns)
        width += column.minWidth + table.intercellSpacing.width;
    width = std::max(smallestWidth, width);
    // Filled by the columns from the beginning: when the table grows, the second one gets what is added.
    NSScrollView* scrollView = [[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, width, smallestHeight)];
    scrollView.translatesAutoresizingMaskIntoConstraints = NO;
    scrollView.borderType = NSBezelBorder;
    scrollView.hasVerticalScroller = YES;
    scrollView.autohidesScrollers = YES;
    scrollView.documentView = table;
    [table sizeToFit];
    [scrollView.widthAnchor constraintGreaterThanOrEqualToConstant:width].active = YES;
    [scrollView.heightAnchor constraintGreaterThanOrEqualToConstant:smallestHeight].active = YES;
    return scrollView;
}

} // namespace quorvane
