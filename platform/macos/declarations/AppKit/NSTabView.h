#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSTabViewType) { NSNoTabsNoBorder = 6 };

@interface NSTabViewItem : NSObject
- (instancetype)initWithIdentifier:(nullable id)identifier;
@property(nullable, strong) NSView* view;
@end

@interface NSTabView : NSView
@property NSTabViewType tabViewType;
@property(readonly) NSInteger numberOfTabViewItems;
- (void)addTabViewItem:(NSTabViewItem*)tabViewItem;
- (void)selectTabViewItemAtIndex:(NSInteger)index;
@end

#pragma clang assume_nonnull end
