#pragma once

#import "platform/macos/AppKit.h"

/// What the system tells this program, passed on to the hub, `quorvane::AppDelegate`.
@interface AppDelegate : NSObject <NSApplicationDelegate>

/// The one there is.
+ (nonnull AppDelegate*)appDelegate;

- (void)openPreferences:(nullable id)sender;

@end
