#pragma once

// Public SDK documentation.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@class NSMenu;

@interface NSMenuItem : NSObject
- (instancetype)initWithTitle:(NSString*)title
                       action:(nullable SEL)selector
                keyEquivalent:(NSString*)charCode;
@property(copy) NSString* title;
@property(getter=isEnabled) BOOL enabled;
@property(nullable, weak) id target;
@property(nullable, strong) id representedObject;
@property(nullable, strong) NSMenu* submenu;
@end

#pragma clang assume_nonnull end
