#include <gtest/gtest.h>

#import "platform/macos/AppKit.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    @autoreleasepool {
        // The connection to the window server.
        [NSApplication.sharedApplication setActivationPolicy:NSApplicationActivationPolicyAccessory];
        return RUN_ALL_TESTS();
    }
}
