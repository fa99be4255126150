#import "platform/macos/foundation/Receiver.h"

#include <utility>

#include "platform/macos/foundation/CallProgram.h"

@implementation QuorvaneReceiver {
    std::function<void(id)> _handler;
}

- (instancetype)initWithHandler:(std::function<void(id)>)handler {
    self = [super init];
    if (self) _handler = std::move(handler);
    return self;
}

- (void)dealloc {
    [NSNotificationCenter.defaultCenter removeObserver:self];
}

- (void)receive:(nullable id)told {
    const auto handler = _handler;
    quorvane::callProgram(handler, told);
}

- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context {
    (void)object;
    (void)change;
    (void)context;
    [self receive:keyPath];
}

@end
