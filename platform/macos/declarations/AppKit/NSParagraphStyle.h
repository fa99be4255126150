#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSLineBreakMode) { NSLineBreakByTruncatingTail = 4 };

@interface NSParagraphStyle : NSObject
@end

#pragma clang assume_nonnull end
