#pragma once

#include "platform/linux/kwin/KWinScript.h"
#include "platform/linux/session/CompositorWindows.h"
#include "platform/linux/session/ShellMessages.h"

namespace quorvane {

/// Feeds what the script in KWin tells.
class KWinWindows {
public:
    /// All must outlive this object.
    KWinWindows(ShellMessages& messages, KWinScript& script, CompositorWindows& windows);

private:
    bool isTellingAll_ = false;
    Subscription starts_;
    Subscription changes_;
    Subscription closings_;
    Subscription activations_;
};

} // namespace quorvane
