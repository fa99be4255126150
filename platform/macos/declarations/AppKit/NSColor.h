#pragma once

// Public SDK documentation.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSColor : NSObject
@property(class, strong, readonly) NSColor* clearColor;
@property(class, strong, readonly) NSColor* grayColor;
@property(class, strong, readonly) NSColor* linkColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* secondaryLabelColor API_AVAILABLE(macos(10.10));
@property(readonly) CGColorRef CGColor __attribute__((objc_returns_inner_pointer));
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
@property(class, strong, readonly) NSColor* labelColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* tertiaryLabelColor API_AVAILABLE(macos(10.10));
@property(class, strong, readonly) NSColor* controlBackgroundColor;
@property(class, strong, readonly) NSColor* textBackgroundColor;
@property(class, strong, readonly) NSColor* controlTextColor;
@property(class, strong, readonly) NSColor* disabledControlTextColor;
@property(class, strong, readonly) NSColor* placeholderTextColor API_AVAILABLE(macos(10.10));
@end

#pragma clang assume_nonnull end
