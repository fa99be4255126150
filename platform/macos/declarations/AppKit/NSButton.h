#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSControl.h>

#pragma clang assume_nonnull begin

@class NSColor;
@class NSImage;
@class NSImageSymbolConfiguration;

typedef NS_ENUM(NSUInteger, NSButtonType) {
    NSButtonTypePushOnPushOff = 1,
    NSButtonTypeSwitch = 3,
    NSButtonTypeMomentaryChange = 5
};
typedef NS_ENUM(NSUInteger, NSBezelStyle) { NSBezelStyleSmallSquare = 10 };
typedef NS_ENUM(NSUInteger, NSCellImagePosition) { NSImageLeading = 7, NSImageAbove = 5, NSImageOnly = 1 };

@interface NSButton : NSControl
+ (instancetype)buttonWithTitle:(NSString*)title
                          image:(NSImage*)image
                         target:(nullable id)target
                         action:(nullable SEL)action API_AVAILABLE(macos(10.12));
+ (instancetype)buttonWithTitle:(NSString*)title
                         target:(nullable id)target
                         action:(nullable SEL)action API_AVAILABLE(macos(10.12));
+ (instancetype)buttonWithImage:(NSImage*)image
                         target:(nullable id)target
                         action:(nullable SEL)action API_AVAILABLE(macos(10.12));
+ (instancetype)checkboxWithTitle:(NSString*)title
                           target:(nullable id)target
                           action:(nullable SEL)action API_AVAILABLE(macos(10.12));
- (void)setButtonType:(NSButtonType)type;
@property(getter=isBordered) BOOL bordered;
@property NSBezelStyle bezelStyle;
@property NSCellImagePosition imagePosition;
@property(nullable, copy) NSColor* contentTintColor API_AVAILABLE(macos(10.14));
@property(nullable, copy) NSImageSymbolConfiguration* symbolConfiguration API_AVAILABLE(macos(11.0));
@property(copy) NSString* title;
@property(copy) NSString* keyEquivalent;
@property NSControlStateValue state;
@property(nullable, strong) NSImage* image;
@end

#pragma clang assume_nonnull end
