#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// From now on the signals by which a process is asked to end end the program the normal way, an open alert
/// notwithstanding. Kept as long as the answer is kept.
NSArray* terminateOnSignals();

} // namespace quorvane
