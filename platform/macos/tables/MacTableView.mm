#import "platform/macos/tables/MacTableView.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <variant>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"
#import "platform/macos/tables/CellContainer.h"
#import "platform/macos/tables/CellViews.h"
#import "platform/macos/tables/DraggedRow.h"
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

/// Whether one of the table's texts has the keyboard: by way of the window's editor, which works for it.
bool isBeingEdited(NSTableView* table) {
    NSResponder* responder = table.window.firstResponder;
    if (![responder isKindOfClass:[NSText class]]) return false;
    auto* editor = static_cast<NSText*>(responder);
    const id edited = editor.fieldEditor ? editor.delegate : nil;
    if (![edited isKindOfClass:[NSView class]]) return false;
    return [static_cast<NSView*>(edited) isDescendantOf:table];
}

} // namespace

MacTableView::MacTableView(NSTableView* table, HotKeySuspender suspendHotKeys)
    : table_(table)
    , suspendHotKeys_(std::move(suspendHotKeys))
    , reload_(std::make_shared<DeferredReload>(
          DeferredReload::Table{.reload = [this] { reloadNow(); },
                                .isBeingEdited = [table] { return isBeingEdited(table); },
                                .callLater = callLater})) {}

void MacTableView::connect(TableSource& source, id<NSTableViewDelegate, NSTextFieldDelegate> controller) {
    source_ = &source;
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
    return source_ ? std::max(0, source_->numberOfRowsInTableView(*this)) : 0;
}

NSView* MacTableView::viewForTableColumn(NSTableColumn* column, NSInteger row) {
    if (!source_ || !column) return nil;
    const auto cell =
        source_->viewForTableColumn(*this, fromNSString(column.identifier), static_cast<int>(row));
    return cell.parts.empty() && cell.frame == Rect() ? nil : viewFor(cell, column);
}

CGFloat MacTableView::heightOfRow(NSInteger row) const {
    const double height = source_ ? source_->heightOfRow(*this, static_cast<int>(row)) : 0;
    return height > 0 ? height : table_.rowHeight; // The system takes no other.
}

NSView* MacTableView::viewFor(const CellView& cell, NSTableColumn* column) {
    const CellSurroundings surroundings{.columnTitle = column.title,
                                        .controller = controller_,
                                        .suspendHotKeys = suspendHotKeys_,
                                        .reload = reload_};
    NSView* container = makeContainer(cell.frame);
    for (const auto& part : cell.parts) {
        const auto make = [&](const auto& each) {
            NSView* view = makeView(each, surroundings);
            view.frame = rectOf(each.frame);
            return view;
        };
        [container addSubview:std::visit(make, part)];
    }
    return container;
}

BOOL MacTableView::textShouldEndEditing(NSControl* control, NSText* fieldEditor) {
    if (!source_) return YES;
    const auto use = reload_->use(); // A reload now would take the field away from the editor.
    const TextFieldPart part{.tag = static_cast<int>(control.tag),
                             .identifier = fromNSString(control.identifier),
                             .isEditable = true};
    // The control itself may still have the old text.
    return source_->textShouldEndEditing(part, fromNSString(fieldEditor.string));
}

BOOL MacTableView::writeRows(NSIndexSet* rows, NSPasteboard* pasteboard, id owner) {
    return isReorderable_ && quorvane::writeRows(rows, pasteboard, owner);
}

NSDragOperation MacTableView::validateDrop(NSTableViewDropOperation operation) const {
    return operation == NSTableViewDropAbove ? NSDragOperationEvery : NSDragOperationNone;
}

BOOL MacTableView::acceptDrop(id<NSDraggingInfo> info, NSInteger row) {
    const auto dragged = readDraggedRow(info.draggingPasteboard);
    if (!source_ || !dragged) return YES; // Nothing of ours was dropped.
    const TableView* source = info.draggingSource == table_ ? this : nullptr;
    return source_->acceptDrop(*this, source, *dragged, static_cast<int>(row));
}

} // namespace quorvane
