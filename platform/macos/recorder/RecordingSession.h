#pragma once

#include <functional>

#include "platform/Subscription.h"
#import "platform/macos/AppKit.h"
#include "platform/macos/keyboard/HotKeySuspender.h"

namespace quorvane {

/// What a recording takes for itself, and what it has to hear of besides the keys that come to its view.
struct RecordingSession {
    HotKeySuspender suspendHotKeys;
    std::function<Subscription()> use; ///< Of the cell, see `DeferredReload`.
    std::function<void()> lostFocus;   ///< A click elsewhere, or another window has the keyboard.

    /// A key goes up. The view itself hears of none while Command is held.
    std::function<void(unsigned short keyCode)> keyUp;
};

/// Lasts as long as what is returned, which a handler may end.
Subscription beginSession(NSView* _Nullable view, const RecordingSession& session);

} // namespace quorvane
