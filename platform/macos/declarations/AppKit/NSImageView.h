#pragma once

// Public SDK documentation.

#import <AppKit/NSColor.h>
#import <AppKit/NSControl.h>

#pragma clang assume_nonnull begin

@class NSImage;

@interface NSImageView : NSControl
@property(nullable, strong) NSImage* image;
@property NSImageScaling imageScaling;
@property(nullable, copy) NSColor* contentTintColor API_AVAILABLE(macos(10.14));
@end

#pragma clang assume_nonnull end
