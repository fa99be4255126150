#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSString* NSPasteboardType;
extern "C" NSPasteboardType const NSPasteboardTypeString;

@interface NSPasteboard : NSObject
- (NSInteger)declareTypes:(NSArray<NSPasteboardType>*)newTypes owner:(nullable id)newOwner;
- (BOOL)setData:(nullable NSData*)data forType:(NSPasteboardType)dataType;
- (nullable NSData*)dataForType:(NSPasteboardType)dataType;
@end

#pragma clang assume_nonnull end
