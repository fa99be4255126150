#pragma once

// Public SDK documentation.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class NSEvent;

@interface NSResponder : NSObject
@property(readonly) BOOL acceptsFirstResponder;
- (BOOL)resignFirstResponder;
- (void)mouseDown:(NSEvent*)event;
- (void)keyDown:(NSEvent*)event;
- (void)flagsChanged:(NSEvent*)event;
- (BOOL)performKeyEquivalent:(NSEvent*)event;
@end

#pragma clang assume_nonnull end
