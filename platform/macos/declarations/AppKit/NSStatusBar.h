#pragma once

// Public SDK documentation.

#import <AppKit/NSButton.h>
#import <AppKit/NSMenu.h>

#pragma clang assume_nonnull begin

@interface NSStatusBarButton : NSButton
@end

@interface NSStatusItem : NSObject
@property(nullable, readonly, strong) NSStatusBarButton* button API_AVAILABLE(macos(10.10));
@property(nullable, strong) NSMenu* menu;
@property(getter=isVisible) BOOL visible API_AVAILABLE(macos(10.12));
@end

@interface NSStatusBar : NSObject
@property(class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

#pragma clang assume_nonnull end
