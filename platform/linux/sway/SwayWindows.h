#pragma once

#include "platform/linux/session/CompositorWindows.h"
#include "platform/linux/sway/SwayReading.h"

namespace quorvane {

/// Feeds what sway tells of its windows. It tells at once who has the focus. That a window was resized, that
/// a floating one was moved, and what has become of the others when one closes, it does not tell: the tree
/// has it, which is read once after any events.
class SwayWindows {
public:
    /// Both must outlive this object.
    SwayWindows(SwayIpc& sway, CompositorWindows& windows);

    /// Something else tells that the focus may have moved.
    void readAnew() { tree_.readAnew(); }

private:
    void handleWindow(const QJsonObject& event);
    void takeTree(const QJsonObject& root);

    CompositorWindows& windows_;
    SwayReading tree_;
    Subscription events_;
};

} // namespace quorvane
