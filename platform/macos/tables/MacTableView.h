#pragma once

#include <memory>

#include "platform/TableSource.h"
#import "platform/macos/AppKit.h"
#include "platform/macos/keyboard/HotKeySuspender.h"
#include "platform/macos/tables/DeferredReload.h"

namespace quorvane {

/// A table of the preferences window. While the user is in the midst of using a cell (a name is edited, a
/// menu is open, a shortcut is recorded), a reload waits for the end of that.
class MacTableView : public TableView {
public:
    /// The table's columns are known by their identifiers. `suspendHotKeys` is called when a recorder begins.
    MacTableView(NSTableView* table, HotKeySuspender suspendHotKeys);
    MacTableView(const MacTableView&) = delete;
    MacTableView& operator=(const MacTableView&) = delete;

    /// From now on the cells are the program's. `controller` is the table's delegate and data source, and
    /// that of the names that can be edited; it is not kept alive. `source` must outlive this object.
    void connect(TableSource& source, id<NSTableViewDelegate, NSTextFieldDelegate> controller);

    NSTableView* native() const { return table_; }

    void reloadData() override;
    int selectedRow() const override;
    void selectRow(int row) override;
    void deselectAll() override;
    void registerForDraggedRows() override;

    // What the table's delegate and data source is asked. Before `connect`, the table is empty.
    NSInteger numberOfRows() const;
    NSView* viewForTableColumn(NSTableColumn* column, NSInteger row); ///< Nil where there is nothing.
    CGFloat heightOfRow(NSInteger row) const;                         ///< Never 0.
    BOOL writeRows(NSIndexSet* rows, NSPasteboard* pasteboard, id owner);
    NSDragOperation validateDrop(NSTableViewDropOperation operation) const;
    BOOL acceptDrop(id<NSDraggingInfo> info, NSInteger row);

    /// `control:textShouldEndEditing:` of the table's controller. The text is that of the row in which its
    /// editing began, whatever is there by now.
    BOOL textShouldEndEditing(NSControl* control, NSText* fieldEditor);

private:
    void reloadNow();
    NSView* viewFor(const CellView& cell, NSTableColumn* column);

    NSTableView* table_;
    HotKeySuspender suspendHotKeys_;
    TableSource* source_ = nullptr;
    __weak id<NSTableViewDelegate, NSTextFieldDelegate> controller_;
    bool isReorderable_ = false;
    std::shared_ptr<DeferredReload> reload_; ///< Widgets may outlive the table.
};

} // namespace quorvane
