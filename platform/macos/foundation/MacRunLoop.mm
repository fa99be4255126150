#import "platform/macos/foundation/MacRunLoop.h"

#include <chrono>
#include <cstdint>
#include <thread>
#include <utility>

#include "platform/macos/foundation/CallProgram.h"

namespace quorvane {
namespace {

class MacTimer : public Timer {
public:
    explicit MacTimer(NSTimer* timer) : timer_(timer) {}

    // A timer that is invalid or has fired must not get another fire date, but may be invalidated once more.
    void disarm() override { [timer_ invalidate]; }

private:
    NSTimer* timer_;
};

} // namespace

MacRunLoop::MacRunLoop()
    : activity_([NSProcessInfo.processInfo
          beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                            reason:@"Input sources are switched as soon as the front application changes"]) {}

MacRunLoop::~MacRunLoop() {
    [NSProcessInfo.processInfo endActivity:activity_];
}

TimerRef MacRunLoop::scheduledTimer(double seconds, bool repeats, Block block) {
    Work work = workOf(std::move(block));
    NSTimer* timer = [NSTimer timerWithTimeInterval:seconds
                                            repeats:repeats
                                              block:^(NSTimer*) {
                                                work();
                                              }];
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
    return std::make_shared<MacTimer>(timer);
}

void MacRunLoop::dispatchAfter(double seconds, Block block) {
    if (seconds <= 0) {
        dispatch_async(dispatch_get_main_queue(), workOf(std::move(block)));
        return;
    }
    const auto delay = static_cast<std::int64_t>(seconds * static_cast<double>(NSEC_PER_SEC));
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, delay), dispatch_get_main_queue(),
                   workOf(std::move(block)));
}

void MacRunLoop::sleep(double seconds) {
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

MacRunLoop::Work MacRunLoop::workOf(Block block) const {
    const auto shared = std::make_shared<const Block>(std::move(block));
    const std::weak_ptr<const bool> exists = exists_;
    return ^{
      const auto held = shared; // A block that ends its own timer would otherwise end itself.
      if (!exists.expired()) callProgram(*held);
    };
}

} // namespace quorvane
