#pragma once

#include <QObject>

#include "platform/RunLoop.h"

namespace quorvane {

/// Qt's event loop, which on Linux is GLib's.
class QtRunLoop : public RunLoop {
public:
    TimerRef scheduledTimer(double seconds, bool repeats, Block block) override;
    void dispatchAfter(double seconds, Block block) override;
    void sleep(double seconds) override;

private:
    QObject context_; // timers and queued blocks end with it
};

} // namespace quorvane
