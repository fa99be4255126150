#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSColor.h>
#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSBoxType) { NSBoxPrimary = 0, NSBoxSeparator = 2, NSBoxCustom = 4 };
typedef NS_ENUM(NSUInteger, NSTitlePosition) { NSNoTitle = 0 };

@interface NSBox : NSView
@property NSBoxType boxType;
@property NSTitlePosition titlePosition;
@property CGFloat borderWidth;
@property CGFloat cornerRadius;
@property(copy) NSColor* borderColor;
@property(copy) NSColor* fillColor;
@end

#pragma clang assume_nonnull end
