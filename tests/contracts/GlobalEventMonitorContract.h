#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {

enum class TestKey {
    leftShift,
    rightShift,
    leftControl,
    rightControl,
    leftOption,
    rightOption,
    leftCommand,
    rightCommand,
    capsLock,
    letter
};

class GlobalEventMonitorBench {
public:
    virtual ~GlobalEventMonitorBench() = default;

    virtual GlobalEventMonitor& monitor() = 0;
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;

    virtual void press(TestKey key) = 0;
    virtual void release(TestKey key) = 0;
    virtual void clickLeft() = 0;
    virtual void clickRight() = 0;
};

class GlobalEventMonitorContract
    : public testing::TestWithParam<std::function<std::unique_ptr<GlobalEventMonitorBench>()>> {
protected:
    Subscription observe(EventMask mask) {
        return monitor_.addGlobalMonitor(mask, [this](const Event& event) { events_.push_back(event); });
    }
    /// The flags of all events so far, of which there must be that many.
    std::vector<std::uint64_t> flags(std::size_t count) {
        EXPECT_TRUE(bench_->waitUntil([&] { return events_.size() >= count; }));
        std::vector<std::uint64_t> all;
        for (const auto& event : events_)
            all.push_back(event.modifierFlags);
        return all;
    }
    void tap(TestKey key) {
        bench_->press(key);
        bench_->release(key);
    }

    std::unique_ptr<GlobalEventMonitorBench> bench_ = GetParam()();
    GlobalEventMonitor& monitor_ = bench_->monitor();
    std::vector<Event> events_;
};

TEST_P(GlobalEventMonitorContract, TellsWhichModifierIsHeld) {
    const std::pair<TestKey, std::uint64_t> keys[] = {
        {TestKey::leftShift, 0x20102},    {TestKey::rightShift, 0x20104},   {TestKey::leftControl, 0x40101},
        {TestKey::rightControl, 0x42100}, {TestKey::leftOption, 0x80120},   {TestKey::rightOption, 0x80140},
        {TestKey::leftCommand, 0x100108}, {TestKey::rightCommand, 0x100110}};
    const auto subscription = observe(eventMask(EventType::flagsChanged));
    for (const auto& [key, held] : keys) {
        events_.clear();
        tap(key);
        EXPECT_THAT(flags(2), testing::ElementsAre(held, 0x100)) << static_cast<int>(key);
        EXPECT_EQ(events_.front().type, EventType::flagsChanged);
        EXPECT_LE(events_.front().timestamp, events_.back().timestamp);
    }
}

TEST_P(GlobalEventMonitorContract, AddsUpModifiersAndLeavesOutOtherKeys) {
    const auto subscription = observe(eventMask(EventType::flagsChanged));
    bench_->press(TestKey::leftShift);
    tap(TestKey::letter);
    bench_->clickLeft();
    bench_->press(TestKey::rightShift);
    bench_->release(TestKey::leftShift);
    bench_->release(TestKey::rightShift);
    EXPECT_THAT(flags(4), testing::ElementsAre(0x20102, 0x20106, 0x20104, 0x100));
}

TEST_P(GlobalEventMonitorContract, CapsLockStaysUntilItIsPressedAgain) {
    const auto subscription = observe(eventMask(EventType::flagsChanged));
    tap(TestKey::capsLock);
    EXPECT_THAT(flags(1), testing::ElementsAre(0x10100));
    tap(TestKey::leftShift);
    EXPECT_THAT(flags(3), testing::ElementsAre(0x10100, 0x30102, 0x10100));
    tap(TestKey::capsLock);
    EXPECT_THAT(flags(4).back(), 0x100);
}

TEST_P(GlobalEventMonitorContract, TellsTheReleaseOfTheLeftButtonOnly) {
    auto clicks = observe(eventMask(EventType::leftMouseUp));
    tap(TestKey::leftShift);
    bench_->clickRight();
    bench_->clickLeft();
    flags(1);
    clicks.end();
    bench_->clickLeft();
    const auto keys = observe(eventMask(EventType::flagsChanged));
    tap(TestKey::leftShift);
    flags(3);
    std::vector<EventType> types;
    for (const auto& event : events_)
        types.push_back(event.type);
    EXPECT_THAT(types, testing::ElementsAre(EventType::leftMouseUp, EventType::flagsChanged,
                                            EventType::flagsChanged));
}

} // namespace quorvane
