#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSBorderType) { NSBezelBorder = 2 };

@interface NSScrollView : NSView
@property(nullable, strong) __kindof NSView* documentView;
@property NSBorderType borderType;
@property BOOL hasVerticalScroller;
@property BOOL autohidesScrollers;
@end

#pragma clang assume_nonnull end
