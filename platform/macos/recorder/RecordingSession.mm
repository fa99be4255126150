#import "platform/macos/recorder/RecordingSession.h"

#include <array>
#include <memory>

#include "platform/macos/foundation/CallProgram.h"

namespace quorvane {
namespace {

bool isInside(NSEvent* event, NSView* view) {
    if (!view || event.window != view.window) return false;
    return NSPointInRect([view convertPoint:event.locationInWindow fromView:nil], view.bounds);
}

/// The session is a copy: the one in the block may go with it meanwhile.
void handle(NSEvent* event, NSView* view, RecordingSession session) {
    if (event.type == NSEventTypeKeyUp)
        session.keyUp(event.keyCode);
    else if (!isInside(event, view))
        session.lostFocus();
}

Subscription watchEvents(NSView* view, const RecordingSession& session) {
    __weak NSView* weakView = view;
    const auto kept = session; // Blocks hold variables, not what references refer to.
    constexpr auto events =
        NSEventMaskKeyUp | NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown | NSEventMaskOtherMouseDown;
    id monitor = [NSEvent addLocalMonitorForEventsMatchingMask:events
                                                       handler:^NSEvent*(NSEvent* event) {
                                                         NSView* alive = weakView;
                                                         callProgram(handle, event, alive, kept);
                                                         return event;
                                                       }];
    if (!monitor) return {};
    return Subscription([monitor] { [NSEvent removeMonitor:monitor]; });
}

Subscription watchWindow(NSWindow* window, std::function<void()> resigned) {
    if (!window) return {};
    id observer = [NSNotificationCenter.defaultCenter
        addObserverForName:NSWindowDidResignKeyNotification
                    object:window
                     queue:nil
                usingBlock:^(NSNotification*) {
                  const auto called = resigned; // The block may go with the session.
                  callProgram(called);
                }];
    return Subscription([observer] { [NSNotificationCenter.defaultCenter removeObserver:observer]; });
}

} // namespace

Subscription beginSession(NSView* view, const RecordingSession& session) {
    using All = std::array<Subscription, 4>;
    auto all =
        std::make_shared<All>(All{session.suspendHotKeys ? session.suspendHotKeys() : Subscription(),
                                  session.use ? session.use() : Subscription(), watchEvents(view, session),
                                  watchWindow(view.window, session.lostFocus)});
    return Subscription([all] {
        for (auto& each : *all)
            each.end();
    });
}

} // namespace quorvane
