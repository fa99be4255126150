#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSString* NSAccessibilityRole;
typedef NSString* NSAccessibilitySubrole;
extern "C" NSAccessibilityRole const NSAccessibilityButtonRole;
extern "C" NSAccessibilityRole const NSAccessibilityRadioButtonRole;
extern "C" NSAccessibilityRole const NSAccessibilityTabGroupRole;
extern "C" NSAccessibilitySubrole const NSAccessibilityTabButtonSubrole API_AVAILABLE(macos(10.13));

// What NSView, NSCell and NSWindow adopt.
@protocol NSAccessibility
@property(getter=isAccessibilityElement) BOOL accessibilityElement;
@property(nullable, copy) NSString* accessibilityLabel;
@property(nullable, copy) NSString* accessibilityHelp;
@property(nullable, copy) NSAccessibilityRole accessibilityRole;
@property(nullable, copy) NSAccessibilitySubrole accessibilitySubrole;
@property(nullable, strong) id accessibilityValue;
@property(nullable, weak) id accessibilityTitleUIElement;
- (BOOL)accessibilityPerformPress;
@end

typedef NSString* NSAccessibilityNotificationName;
extern "C" NSAccessibilityNotificationName const NSAccessibilityValueChangedNotification;
extern "C" void NSAccessibilityPostNotification(id element, NSAccessibilityNotificationName notification);

#pragma clang assume_nonnull end
