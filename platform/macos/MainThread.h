#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/macos/Apple.h"

namespace quorvane {

/// Ends the program when it is not on the main thread. The system does so itself, but not in every version,
/// and without a word.
inline void requireMainThread() {
    if (CFRunLoopGetCurrent() == CFRunLoopGetMain()) return;
    std::fputs("quorvane: input sources and hot keys belong to the main thread\n", stderr);
    std::abort();
}

} // namespace quorvane
