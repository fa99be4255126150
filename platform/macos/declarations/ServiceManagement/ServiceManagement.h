#pragma once

// The public SDK documentation; the numbers of constants agree with the Rust bindings
// objc2-service-management.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

extern "C" Boolean SMLoginItemSetEnabled(CFStringRef identifier, Boolean enabled)
    API_DEPRECATED("", macos(10.6, 13.0));

enum { kSMErrorJobNotFound = 6, kSMErrorAlreadyRegistered = 12 };

typedef NS_ENUM(NSInteger, SMAppServiceStatus) {
    SMAppServiceStatusNotRegistered,
    SMAppServiceStatusEnabled,
    SMAppServiceStatusRequiresApproval,
    SMAppServiceStatusNotFound
} API_AVAILABLE(macos(13.0));

API_AVAILABLE(macos(13.0))
@interface SMAppService : NSObject
+ (instancetype)loginItemServiceWithIdentifier:(NSString*)identifier;
@property(readonly) SMAppServiceStatus status;
- (BOOL)registerAndReturnError:(NSError* _Nullable* _Nullable)error;
- (BOOL)unregisterAndReturnError:(NSError* _Nullable* _Nullable)error;
@end

#pragma clang assume_nonnull end
