#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSResponder.h>

#pragma clang assume_nonnull begin

@class NSWindow;

@interface NSWindowController : NSResponder
- (instancetype)initWithWindow:(nullable NSWindow*)window __attribute__((objc_designated_initializer));
@property(nullable, strong) NSWindow* window;
@property BOOL shouldCascadeWindows;
@end

#pragma clang assume_nonnull end
