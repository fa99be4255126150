#pragma once

// Public SDK documentation.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface CALayer : NSObject
@property(nullable) CGColorRef backgroundColor;
@property CGFloat cornerRadius;
@property BOOL masksToBounds;
@end

#pragma clang assume_nonnull end
