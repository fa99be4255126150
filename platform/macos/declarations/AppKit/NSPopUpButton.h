#pragma once

// Public SDK documentation; the numbers of constants agree with the Rust bindings objc2-app-kit.

#import <AppKit/NSButton.h>
#import <AppKit/NSMenu.h>

#pragma clang assume_nonnull begin

@interface NSPopUpButton : NSButton
- (instancetype)initWithFrame:(NSRect)buttonFrame pullsDown:(BOOL)flag;
@property(nullable, strong) NSMenu* menu;
@property(readonly) NSInteger indexOfSelectedItem;
- (void)selectItemAtIndex:(NSInteger)index;
@end

extern "C" NSNotificationName const NSPopUpButtonWillPopUpNotification;

#pragma clang assume_nonnull end
