#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSControl.h>

#pragma clang assume_nonnull begin

typedef NS_OPTIONS(NSUInteger, NSTableColumnResizingOptions) {
    NSTableColumnNoResizing = 0,
    NSTableColumnAutoresizingMask = 1 << 0,
    NSTableColumnUserResizingMask = 1 << 1
};

@interface NSTableColumn : NSObject
- (instancetype)initWithIdentifier:(NSUserInterfaceItemIdentifier)identifier;
@property(copy) NSUserInterfaceItemIdentifier identifier;
@property CGFloat width;
@property CGFloat minWidth;
@property CGFloat maxWidth;
@property(copy) NSString* title API_AVAILABLE(macos(10.10));
@property NSTableColumnResizingOptions resizingMask;
- (void)sizeToFit;
@end

#pragma clang assume_nonnull end
