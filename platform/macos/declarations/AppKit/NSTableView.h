#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSControl.h>
#import <AppKit/NSDragging.h>
#import <AppKit/NSTableColumn.h>

#pragma clang assume_nonnull begin

@class NSIndexSet;
@class NSTableView;

typedef NS_ENUM(NSUInteger, NSTableViewDropOperation) { NSTableViewDropOn = 0, NSTableViewDropAbove = 1 };

typedef NS_ENUM(NSUInteger, NSTableViewColumnAutoresizingStyle) {
    NSTableViewUniformColumnAutoresizingStyle = 1
};

@protocol NSTableViewDelegate <NSControlTextEditingDelegate>
@optional
- (nullable NSView*)tableView:(NSTableView*)tableView
           viewForTableColumn:(nullable NSTableColumn*)tableColumn
                          row:(NSInteger)row;
- (CGFloat)tableView:(NSTableView*)tableView heightOfRow:(NSInteger)row;
- (void)tableViewSelectionDidChange:(NSNotification*)notification;
@end

@protocol NSTableViewDataSource <NSObject>
@optional
- (NSInteger)numberOfRowsInTableView:(NSTableView*)tableView;
- (BOOL)tableView:(NSTableView*)tableView
    writeRowsWithIndexes:(NSIndexSet*)rowIndexes
            toPasteboard:(NSPasteboard*)pboard API_DEPRECATED("", macos(10.4, 10.15));
- (NSDragOperation)tableView:(NSTableView*)tableView
                validateDrop:(id<NSDraggingInfo>)info
                 proposedRow:(NSInteger)row
       proposedDropOperation:(NSTableViewDropOperation)dropOperation;
- (BOOL)tableView:(NSTableView*)tableView
       acceptDrop:(id<NSDraggingInfo>)info
              row:(NSInteger)row
    dropOperation:(NSTableViewDropOperation)dropOperation;
@end

@interface NSTableView : NSControl
@property(nullable, weak) id<NSTableViewDataSource> dataSource;
@property(nullable, weak) id<NSTableViewDelegate> delegate;
@property NSTableViewColumnAutoresizingStyle columnAutoresizingStyle;
@property NSSize intercellSpacing;
@property CGFloat rowHeight;
@property BOOL allowsColumnReordering;
@property BOOL allowsMultipleSelection;
@property(readonly, copy) NSArray<NSTableColumn*>* tableColumns;
@property(readonly) NSInteger numberOfRows;
- (void)sizeToFit;
- (void)addTableColumn:(NSTableColumn*)tableColumn;
- (void)reloadData;
@property(readonly) NSInteger numberOfColumns;
@property(readonly) NSInteger selectedRow;
- (void)selectRowIndexes:(NSIndexSet*)indexes byExtendingSelection:(BOOL)extend;
- (void)deselectAll:(nullable id)sender;
- (void)scrollRowToVisible:(NSInteger)row;
- (NSInteger)rowForView:(NSView*)view;
- (NSInteger)columnForView:(NSView*)view;
- (nullable __kindof NSView*)viewAtColumn:(NSInteger)column
                                      row:(NSInteger)row
                          makeIfNecessary:(BOOL)makeIfNecessary;
- (void)setDraggingSourceOperationMask:(NSDragOperation)mask forLocal:(BOOL)isLocal;
@end

#pragma clang assume_nonnull end
