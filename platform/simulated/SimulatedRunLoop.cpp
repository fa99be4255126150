#include "platform/simulated/SimulatedRunLoop.h"

#include <cmath>
#include <utility>

namespace quorvane {

class SimulatedRunLoop::SimulatedTimer : public Timer {
public:
    SimulatedTimer(SimulatedRunLoop& runLoop, std::shared_ptr<bool> armed)
        : runLoop_(runLoop)
        , armed_(std::move(armed)) {}

    void disarm() override {
        *armed_ = false;
        runLoop_.dropDisarmed();
    }

private:
    SimulatedRunLoop& runLoop_;
    std::shared_ptr<bool> armed_;
};

SimulatedRunLoop::Ticks SimulatedRunLoop::ticks(double seconds) {
    return static_cast<Ticks>(std::llround(seconds * ticksPerSecond));
}

void SimulatedRunLoop::advance(double seconds) {
    const auto end = now_ + ticks(seconds);
    while (!pending_.empty() && pending_.begin()->first.time <= std::max(end, now_)) {
        auto next = pending_.extract(pending_.begin());
        auto& entry = next.mapped();
        now_ = std::max(now_, next.key().time);
        if (entry.interval > 0) add(now_ + entry.interval, entry);
        entry.block();
    }
    now_ = std::max(now_, end);
}

TimerRef SimulatedRunLoop::scheduledTimer(double seconds, bool repeats, Block block) {
    auto armed = std::make_shared<bool>(true);
    add(now_ + ticks(seconds), {std::move(block), armed, repeats ? ticks(seconds) : 0});
    return std::make_shared<SimulatedTimer>(*this, std::move(armed));
}

void SimulatedRunLoop::dispatchAfter(double seconds, Block block) {
    add(now_ + ticks(seconds), {std::move(block), std::make_shared<bool>(true)});
}

void SimulatedRunLoop::sleep(double seconds) {
    journal_.add("sleep ", seconds);
    now_ += ticks(seconds);
}

void SimulatedRunLoop::dropDisarmed() {
    std::erase_if(pending_, [](const auto& pending) { return !*pending.second.armed; });
}

} // namespace quorvane
