#pragma once

#include <chrono>
#include <functional>

#import "platform/macos/AppKit.h"

namespace quorvane {

/// Handles what happens until the condition holds; false when it does not for a long time.
inline bool waitUntil(const std::function<bool()>& condition) {
    constexpr std::chrono::seconds longest(10);
    constexpr NSTimeInterval slice = 0.02; // seconds
    const auto end = std::chrono::steady_clock::now() + longest;
    NSApplication* application = NSApplication.sharedApplication;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        @autoreleasepool {
            NSEvent* event = [application nextEventMatchingMask:NSEventMaskAny
                                                      untilDate:[NSDate dateWithTimeIntervalSinceNow:slice]
                                                         inMode:NSDefaultRunLoopMode
                                                        dequeue:YES];
            if (event) [application sendEvent:event];
        }
    }
    return true;
}

} // namespace quorvane
