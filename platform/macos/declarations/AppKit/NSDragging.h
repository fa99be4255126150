#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSPasteboard.h>

#pragma clang assume_nonnull begin

typedef NS_OPTIONS(NSUInteger, NSDragOperation) {
    NSDragOperationNone = 0,
    NSDragOperationCopy = 1,
    NSDragOperationLink = 2,
    NSDragOperationMove = 16,
    NSDragOperationEvery = ~0UL
};

@protocol NSDraggingInfo <NSObject>
@property(readonly, strong) NSPasteboard* draggingPasteboard;
@property(nullable, readonly, strong) id draggingSource;
@end

#pragma clang assume_nonnull end
