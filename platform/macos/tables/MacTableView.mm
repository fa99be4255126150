#import "platform/macos/tables/MacTableView.h"

#include <algorithm>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/tables/CellContainer.h"
#import "platform/macos/tables/CellViews.h"
#import "platform/macos/tables/DraggedRow.h"
#import "platform/macos/tables/EditedText.h"
#import "platform/macos/tables/TableFocus.h"

namespace quorvane {
namespace {

/// Not while a menu is open or a control follows the mouse.
void callLater(std::function<void()> call) {
    [NSRunLoop.mainRunLoop performInModes:@[ NSDefaultRunLoopMode ]
                                    block:^{
                                      callProgram(call);
                                    }];
}

} // namespace

MacTableView::MacTableView(NSTableView* table, HotKeySuspender suspendHotKeys)
    : table_(table)
    , suspendHotKeys_(std::move(suspendHotKeys))
    , reload_(std::make_shared<DeferredReload>(
          DeferredReload::Table{.reload = [this] { reloadNow(); },
                                .isBeingEdited = [this] { return isBeingEdited(); },
                                .callLater = callLater})) {}

void MacTableView::connect(PreferencesActions& actions,
                           id<NSTableViewDelegate, NSTextFieldDelegate> controller) {
    actions_ = &actions;
    controller_ = controller;
    reloadData();
}

void MacTableView::reloadData() {
    reload_->request();
}

void MacTableView::reloadNow() {
    const TableFocus focus(table_);
    const auto selected = table_.selectedRow;
    [table_ reloadData];
    if (selected >= table_.numberOfRows)
        [table_ deselectAll:nil];
    else if (selected >= 0 && table_.selectedRow != selected)
        [table_ selectRowIndexes:[NSIndexSet indexSetWithIndex:static_cast<NSUInteger>(selected)]
            byExtendingSelection:NO];
    focus.restore();
}

/// Whether the editing of a text can go on. It cannot when its row has become another one: what is typed
/// would be stored there.
bool MacTableView::isBeingEdited() {
    NSTextField* field = editedField(table_);
    if (!field) return false;
    const auto column = [table_ columnForView:field];
    const bool exists = actions_ && column >= 0 && column < table_.numberOfColumns;
    if (isEndingEditing_ ||
        (exists && isStillIn(field, cellAt(table_.tableColumns[static_cast<NSUInteger>(column)], field.tag))))
        return true;
    [field abortEditing];
    [table_.window makeFirstResponder:table_];
    return false;
}

CellView MacTableView::cellAt(NSTableColumn* column, NSInteger row) {
    return actions_->viewForTableColumn(*this, fromNSString(column.identifier), static_cast<int>(row));
}

int MacTableView::selectedRow() const {
    const auto row = table_.selectedRow;
    return row < 0 ? noRow : static_cast<int>(row);
}

void MacTableView::selectRow(int row) {
    if (row < 0 || row >= table_.numberOfRows) return;
    [table_ selectRowIndexes:[NSIndexSet indexSetWithIndex:static_cast<NSUInteger>(row)]
        byExtendingSelection:NO];
    [table_ scrollRowToVisible:row];
}

void MacTableView::deselectAll() {
    [table_ deselectAll:nil];
}

void MacTableView::registerForDraggedRows() {
    isReorderable_ = true;
    [table_ setDraggingSourceOperationMask:NSDragOperationLink forLocal:NO];
    [table_ setDraggingSourceOperationMask:NSDragOperationMove forLocal:YES];
    [table_ registerForDraggedTypes:@[ NSPasteboardTypeString ]];
}

NSInteger MacTableView::numberOfRows() const {
    return actions_ ? std::max(0, actions_->numberOfRowsInTableView(*this)) : 0;
}

NSView* MacTableView::viewForTableColumn(NSTableColumn* column, NSInteger row) {
    if (!actions_ || !column) return nil;
    return viewFor(cellAt(column, row), column);
}

CGFloat MacTableView::heightOfRow(NSInteger row) const {
    const double height = actions_ ? actions_->heightOfRow(*this, static_cast<int>(row)) : 0;
    return height > 0 ? height : table_.rowHeight; // The system takes no other.
}

NSView* MacTableView::viewFor(const CellView& cell, NSTableColumn* column) {
    const CellSurroundings surroundings{.columnTitle = column.title,
                                        .controller = controller_,
                                        .suspendHotKeys = suspendHotKeys_,
                                        .reload = reload_};
    const auto frame = NSMakeRect(0, 0, column.width, table_.rowHeight);
    QuorvaneCellContainer* container = [[QuorvaneCellContainer alloc] initWithFrame:frame];
    for (const auto& part : cell.parts) {
        NSView* view = std::visit([&](const auto& each) { return makeView(each, surroundings); }, part);
        [container addPart:part asView:view];
    }
    return container;
}

BOOL MacTableView::textShouldEndEditing(NSControl* control, NSText* fieldEditor) {
    const auto edited = fromNSString(fieldEditor.string); // The control itself may still have the old one.
    const auto before = textBefore(control);
    if (!actions_ || isEndingEditing_ || edited == before) return YES;
    const TextFieldPart part{.stringValue = before.value_or(""),
                             .tag = static_cast<int>(control.tag),
                             .identifier = fromNSString(control.identifier),
                             .isEditable = true};
    isEndingEditing_ = true;
    const bool ends = actions_->textShouldEndEditing(part, edited);
    isEndingEditing_ = false;
    return ends;
}

BOOL MacTableView::writeRows(NSIndexSet* rows, NSPasteboard* pasteboard, id owner) {
    return isReorderable_ && quorvane::writeRows(rows, pasteboard, owner);
}

NSDragOperation MacTableView::validateDrop(NSTableViewDropOperation operation) const {
    return operation == NSTableViewDropAbove ? NSDragOperationEvery : NSDragOperationNone;
}

BOOL MacTableView::acceptDrop(id<NSDraggingInfo> info, NSInteger row) {
    const auto dragged = readDraggedRow(info.draggingPasteboard);
    if (!actions_ || !dragged) return YES; // Nothing of ours was dropped.
    const TableView* source = info.draggingSource == table_ ? this : nullptr;
    return actions_->acceptDrop(*this, source, *dragged, static_cast<int>(row));
}

} // namespace quorvane
