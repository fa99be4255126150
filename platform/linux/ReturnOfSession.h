#pragma once

#include <functional>

#include "platform/Subscription.h"

namespace quorvane {

/// A Wayland compositor that dies takes its clients with it: the toolkit ends the process without a word to
/// it. Where the compositor is started again, as Plasma's is in half a second, the program is to be there
/// again, too: the process starts itself anew, under its number, and waits for the compositor.

/// Runs this program again in this process. Returns only if that fails.
void startAnewAfterCompositor();

/// Calls the handler, on the main thread, before the toolkit ends the process because it has lost its
/// connection; the message that says so is the last that it does. Of several, the last one made is called,
/// and nobody once that one has ended: then the process is on its way out.
Subscription beforeToolkitGivesUp(std::function<void()> handler);

/// Waits until there is a compositor again, with all that it answers by. False when there is none in twenty
/// seconds: then the session is over.
bool waitForReturnOfSession();

} // namespace quorvane
