#pragma once

#import "platform/macos/AppKit.h"

/// Prints what this desktop answers, instead of running the program, which may run meanwhile; and ends.
@interface SelfCheckDelegate : NSObject <NSApplicationDelegate>
@end
