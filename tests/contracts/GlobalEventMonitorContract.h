#pragma once

#include <utility>

#include "contracts/Contract.h"
#include "platform/GlobalEventMonitor.h"

namespace quorvane {

// clang-format off
enum class TestKey {
    leftShift, rightShift, leftControl, rightControl, leftOption, rightOption, leftCommand, rightCommand,
    capsLock, letter
};
// clang-format on

class GlobalEventMonitorBench : public ContractBench {
public:
    virtual GlobalEventMonitor& monitor() = 0;

    virtual void press(TestKey key) = 0;
    virtual void release(TestKey key) = 0;
    virtual void clickLeft() = 0;
    virtual void clickRight() = 0;
};

class GlobalEventMonitorContract : public Contract<GlobalEventMonitorBench> {
protected:
    Subscription observe(EventType type) {
        return monitor_.addGlobalMonitor(eventMask(type), [this, type](const Event& event) {
            EXPECT_EQ(event.type, type);
            EXPECT_LE(std::exchange(latest_, event.timestamp), event.timestamp);
            const auto flags = event.modifierFlags & ~whichOfTwo;
            if (type == EventType::leftMouseUp)
                seen_.push_back(click);
            else if (seen_.empty() || seen_.back() != flags)
                seen_.push_back(flags);
        });
    }
    /// Clicks and the flags after each change so far, whichever of two like keys it was; of which there must
    /// be that many.
    const std::vector<std::uint64_t>& seen(std::size_t count) {
        EXPECT_TRUE(waitUntil([&] { return seen_.size() >= count; }));
        return seen_;
    }
    void tap(TestKey key) {
        bench_->press(key);
        bench_->release(key);
    }

    static constexpr std::uint64_t click = 1;           // no flags of the native desktop
    static constexpr std::uint64_t whichOfTwo = 0x207f; // like keys
    GlobalEventMonitor& monitor_ = bench_->monitor();
    std::vector<std::uint64_t> seen_;
    double latest_ = 0; // seconds
};

TEST_P(GlobalEventMonitorContract, TellsWhichModifiersAreHeldAndLeavesOutOtherKeys) {
    const std::pair<TestKey, std::uint64_t> keys[] = {
        {TestKey::leftShift, 0x20100},    {TestKey::rightShift, 0x20100},   {TestKey::leftControl, 0x40100},
        {TestKey::rightControl, 0x40100}, {TestKey::leftOption, 0x80100},   {TestKey::rightOption, 0x80100},
        {TestKey::leftCommand, 0x100100}, {TestKey::rightCommand, 0x100100}};
    const auto subscription = observe(EventType::flagsChanged);
    for (const auto& [key, held] : keys) {
        seen_.clear();
        tap(key);
        EXPECT_THAT(seen(2), testing::ElementsAre(held, 0x100)) << static_cast<int>(key);
    }
    seen_.clear();
    bench_->press(TestKey::leftShift);
    tap(TestKey::letter);
    bench_->clickLeft();
    bench_->press(TestKey::rightShift);
    bench_->release(TestKey::leftShift);
    bench_->release(TestKey::rightShift);
    EXPECT_THAT(seen(2), testing::ElementsAre(0x20100, 0x100));
}

TEST_P(GlobalEventMonitorContract, CapsLockStaysUntilItIsPressedAgain) {
    const auto subscription = observe(EventType::flagsChanged);
    tap(TestKey::capsLock);
    EXPECT_THAT(seen(1), testing::ElementsAre(0x10100));
    tap(TestKey::leftShift);
    EXPECT_THAT(seen(3), testing::ElementsAre(0x10100, 0x30100, 0x10100));
    tap(TestKey::capsLock);
    EXPECT_THAT(seen(4).back(), 0x100);
}

TEST_P(GlobalEventMonitorContract, TellsTheReleaseOfTheLeftButtonOnly) {
    auto clicks = observe(EventType::leftMouseUp);
    tap(TestKey::leftShift);
    bench_->clickRight();
    bench_->clickLeft();
    seen(1);
    clicks.end();
    bench_->clickLeft();
    const auto keys = observe(EventType::flagsChanged);
    tap(TestKey::leftShift);
    EXPECT_THAT(seen(3), testing::ElementsAre(click, 0x20100, 0x100));
}

} // namespace quorvane
