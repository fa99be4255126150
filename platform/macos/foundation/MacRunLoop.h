#pragma once

#include <memory>

#include "platform/RunLoop.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// The main thread's run loop. Timers and blocks go on while a menu is open, an alert is modal or a window is
/// dragged. As long as this exists, the system does not stretch the waits of an agent nobody looks at (App
/// Nap). What is still waiting when this is destroyed is not run any more.
class MacRunLoop : public RunLoop {
public:
    MacRunLoop();
    MacRunLoop(const MacRunLoop&) = delete;
    MacRunLoop& operator=(const MacRunLoop&) = delete;
    ~MacRunLoop() override;

    TimerRef scheduledTimer(double seconds, bool repeats, Block block) override;
    void dispatchAfter(double seconds, Block block) override;
    void sleep(double seconds) override;

private:
    using Work = void (^)();

    Work workOf(Block block) const;

    id<NSObject> activity_;
    std::shared_ptr<const bool> exists_ = std::make_shared<const bool>(true);
};

} // namespace quorvane
