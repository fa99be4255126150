#include "platform/macos/appkit/MacEventMonitor.h"

#import "platform/macos/AppKit.h"
#include "platform/macos/foundation/CallProgram.h"

namespace quorvane {

Subscription MacEventMonitor::addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) {
    id monitor = [NSEvent
        addGlobalMonitorForEventsMatchingMask:mask
                                      handler:^(NSEvent* event) {
                                        callProgram(handler, Event{static_cast<EventType>(event.type),
                                                                   event.modifierFlags, event.timestamp});
                                      }];
    if (!monitor) return {};
    return Subscription([monitor] { [NSEvent removeMonitor:monitor]; });
}

} // namespace quorvane
