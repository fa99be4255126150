#import "platform/macos/tables/TableFocus.h"

namespace quorvane {
namespace {

/// The widget of the cell that can have the keyboard; nil when there is none of this kind.
NSView* findWidget(NSView* cell, Class kind) {
    for (NSView* each in cell.subviews) {
        if ([each isKindOfClass:kind] && each.acceptsFirstResponder) return each;
    }
    return nil;
}

} // namespace

TableFocus::TableFocus(NSTableView* table) : table_(table) {
    NSResponder* responder = table.window.firstResponder;
    if (![responder isKindOfClass:[NSView class]]) return;
    auto* widget = static_cast<NSView*>(responder);
    if (widget == table || ![widget isDescendantOf:table]) return;
    kind_ = [widget class];
    row_ = [table rowForView:widget];
    column_ = [table columnForView:widget];
}

void TableFocus::restore() const {
    if (!kind_) return;
    const bool exists =
        row_ >= 0 && column_ >= 0 && row_ < table_.numberOfRows && column_ < table_.numberOfColumns;
    NSView* cell = exists ? [table_ viewAtColumn:column_ row:row_ makeIfNecessary:YES] : nil;
    NSView* widget = findWidget(cell, kind_);
    [table_.window makeFirstResponder:widget ? widget : table_];
}

} // namespace quorvane
