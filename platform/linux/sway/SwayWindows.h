#pragma once

#include <QTimer>

#include "platform/linux/session/CompositorWindows.h"
#include "platform/linux/sway/SwayReading.h"

namespace quorvane {

/// Feeds what sway tells of its windows. It tells at once who has the focus. That a window was resized, that
/// a floating one was moved, and what has become of the others when one closes, it does not tell: the tree
/// has it, which is read after any events, and once more when the programs have had time to follow them.
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
    QTimer settling_;
    Subscription events_;
};

} // namespace quorvane
