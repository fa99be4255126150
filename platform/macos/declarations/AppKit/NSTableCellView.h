#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSView.h>

#pragma clang assume_nonnull begin

@interface NSTableCellView : NSView
@end

#pragma clang assume_nonnull end
