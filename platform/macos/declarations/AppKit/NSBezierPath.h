#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSBezierPath : NSObject
+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)xRadius yRadius:(CGFloat)yRadius;
- (void)fill;
@end

#pragma clang assume_nonnull end
