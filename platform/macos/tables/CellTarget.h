#pragma once

#include <functional>

#import "platform/macos/foundation/Receiver.h"
#import "platform/macos/recorder/SRRecorderControlWithTagid.h"

/// Hands on what a widget of a cell says: its action, a notification about it, that its menu has closed, or
/// what it has recorded.
@interface QuorvaneCellTarget : QuorvaneReceiver <NSMenuDelegate, ShortcutRecorderDelegate>
@end

namespace quorvane {

/// A target that lives as long as the view. The handler must not own the view: that would be a cycle.
QuorvaneCellTarget* _Nonnull targetOf(NSView* _Nonnull view, std::function<void(id _Nonnull sender)> handler);

/// One that hears of the notification while the view lives. `object` is the view, or belongs to it.
void observe(NSView* _Nonnull view, NSNotificationName _Nonnull name, id _Nonnull object,
             std::function<void(id _Nonnull notification)> handler);

} // namespace quorvane
