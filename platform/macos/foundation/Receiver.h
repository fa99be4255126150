#pragma once

#include <functional>

#import "platform/macos/AppKit.h"

/// Hands on to a function what the system tells an object: an action, a notification, or that an observed key
/// of another object has changed. It may go while its function runs.
@interface QuorvaneReceiver : NSObject
- (nonnull instancetype)initWithHandler:(std::function<void(id _Nullable told)>)handler;

/// `told` is the sender of an action, or a notification; for a change, it is the key's path.
- (void)receive:(nullable id)told;
@end
