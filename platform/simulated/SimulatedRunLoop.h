#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <utility>

#include "platform/RunLoop.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// A run loop whose clock stands still until it is stepped. What is due at the same time runs in the order in
/// which it was scheduled.
class SimulatedRunLoop : public RunLoop {
public:
    explicit SimulatedRunLoop(Journal& journal) : journal_(journal) {}

    double now() const { return static_cast<double>(now_) / ticksPerSecond; } ///< Seconds since it was made.

    /// Lets time pass, running everything that falls due, in order.
    void advance(double seconds);

    /// Runs what is due now, and what that makes due now, without letting time pass.
    void settle() { advance(0); }

    /// How many timers and blocks are still to come; disarmed timers are not.
    std::size_t pendingCount() const { return pending_.size(); }

    TimerRef scheduledTimer(double seconds, bool repeats, Block block) override;
    void dispatchAfter(double seconds, Block block) override;
    void sleep(double seconds) override;

private:
    // Whole microseconds: sums of decimal fractions come out exact.
    using Ticks = std::int64_t;
    static constexpr double ticksPerSecond = 1e6;
    static Ticks ticks(double seconds);

    struct Due {
        Ticks time;
        std::uint64_t order;
        bool operator<(const Due& other) const {
            return time != other.time ? time < other.time : order < other.order;
        }
    };
    struct Entry {
        Block block;
        std::shared_ptr<bool> armed;
        Ticks interval = 0; // 0: once
    };
    class SimulatedTimer;

    void add(Ticks time, Entry entry) { pending_.emplace(Due{time, ++order_}, std::move(entry)); }
    void dropDisarmed();

    Journal& journal_;
    Ticks now_ = 0;
    std::uint64_t order_ = 0;
    std::map<Due, Entry> pending_;
};

} // namespace quorvane
