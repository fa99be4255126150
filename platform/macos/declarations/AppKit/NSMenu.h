#pragma once

// Public SDK documentation.

#import <AppKit/NSMenuItem.h>

#pragma clang assume_nonnull begin

@class NSMenu;

@protocol NSMenuDelegate <NSObject>
@optional
- (void)menuDidClose:(NSMenu*)menu;
@end

@interface NSMenu : NSObject
- (instancetype)initWithTitle:(NSString*)title;
@property BOOL autoenablesItems;
- (NSInteger)indexOfItemWithTitle:(NSString*)title;
- (NSMenuItem*)addItemWithTitle:(NSString*)title
                         action:(nullable SEL)selector
                  keyEquivalent:(NSString*)charCode;
@property(nullable, weak) id<NSMenuDelegate> delegate;
@end

#pragma clang assume_nonnull end
