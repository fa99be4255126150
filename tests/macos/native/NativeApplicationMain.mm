// An application that is only there: with a window, so that it can be in front.

#import "platform/macos/AppKit.h"

int main() {
    @autoreleasepool {
        NSApplication* application = NSApplication.sharedApplication;
        [application setActivationPolicy:NSApplicationActivationPolicyRegular];
        NSWindow* window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 300, 200)
                                                       styleMask:NSWindowStyleMaskTitled
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
        [window makeKeyAndOrderFront:nil];
        [application run];
    }
}
