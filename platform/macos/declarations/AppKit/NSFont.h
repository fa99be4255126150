#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef CGFloat NSFontWeight;
extern "C" const NSFontWeight NSFontWeightRegular;

@interface NSFont : NSObject
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize;
+ (NSFont*)boldSystemFontOfSize:(CGFloat)fontSize;
@property(class, readonly) CGFloat systemFontSize;
@property(class, readonly) CGFloat smallSystemFontSize;
@end

#pragma clang assume_nonnull end
