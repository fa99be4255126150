#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSParagraphStyle.h>
#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSInteger NSControlStateValue;
enum : NSControlStateValue {
    NSControlStateValueMixed = -1,
    NSControlStateValueOff = 0,
    NSControlStateValueOn = 1
};

typedef NS_ENUM(NSUInteger, NSImageScaling) { NSImageScaleProportionallyDown = 0 };

typedef NS_ENUM(NSInteger, NSBackgroundStyle) { NSBackgroundStyleNormal = 0 };

@interface NSCell : NSObject
@property(getter=isScrollable) BOOL scrollable;
@property BOOL wraps;
@property NSLineBreakMode lineBreakMode;
@property NSBackgroundStyle backgroundStyle;
@end

#pragma clang assume_nonnull end
