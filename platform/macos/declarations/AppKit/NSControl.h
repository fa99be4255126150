#pragma once

// Public SDK documentation.

#import <AppKit/NSCell.h>
#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

@class NSFont;
@class NSText;

// Not the same number on both processors.
#if __arm64__
typedef NS_ENUM(NSInteger, NSTextAlignment) { NSTextAlignmentCenter = 1 };
#else
typedef NS_ENUM(NSInteger, NSTextAlignment) { NSTextAlignmentCenter = 2 };
#endif

@interface NSControl : NSView
@property(getter=isEnabled) BOOL enabled;
@property(nullable, weak) id target;
@property(nullable) SEL action;
@property NSInteger tag;
@property(copy) NSString* stringValue;
@property(nullable, strong) NSFont* font;
@property NSTextAlignment alignment;
- (BOOL)sendAction:(nullable SEL)action to:(nullable id)target;
@property(nullable, strong) __kindof NSCell* cell;
@property NSLineBreakMode lineBreakMode;
@property BOOL usesSingleLineMode;
@property BOOL allowsExpansionToolTips;
@property BOOL refusesFirstResponder;
@end

@protocol NSControlTextEditingDelegate <NSObject>
@optional
- (BOOL)control:(NSControl*)control textShouldEndEditing:(NSText*)fieldEditor;
@end

extern "C" NSNotificationName const NSControlTextDidEndEditingNotification;

#pragma clang assume_nonnull end
