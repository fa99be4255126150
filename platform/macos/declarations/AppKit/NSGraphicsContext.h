#pragma once

// Public SDK documentation.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSGraphicsContext : NSObject
@property(class, nullable, strong) NSGraphicsContext* currentContext;
+ (NSGraphicsContext*)graphicsContextWithCGContext:(CGContextRef)graphicsPort
                                           flipped:(BOOL)initialFlippedState API_AVAILABLE(macos(10.10));
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

#pragma clang assume_nonnull end
