#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSControl.h>

#pragma clang assume_nonnull begin

@class NSColor;

@protocol NSTextFieldDelegate <NSControlTextEditingDelegate>
@end

@interface NSTextField : NSControl
+ (instancetype)labelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
+ (instancetype)wrappingLabelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
@property(nullable, weak) id<NSTextFieldDelegate> delegate;
@property(nullable, copy) NSColor* textColor;
@property CGFloat preferredMaxLayoutWidth;
@property(getter=isSelectable) BOOL selectable;
@property(getter=isEditable) BOOL editable;
@property BOOL drawsBackground;
@property(getter=isBordered) BOOL bordered;
@property(getter=isBezeled) BOOL bezeled;
@end

#pragma clang assume_nonnull end
