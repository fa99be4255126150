#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/DistributedNotificationCenter.h"

namespace quorvane {

class DistributedNotificationCenterBench {
public:
    virtual ~DistributedNotificationCenterBench() = default;

    virtual DistributedNotificationCenter& center() = 0;
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;
    virtual void postFromOutside(const DistributedNotification& notification) = 0;
};

class DistributedNotificationCenterContract
    : public testing::TestWithParam<std::function<std::unique_ptr<DistributedNotificationCenterBench>()>> {
protected:
    Subscription observe(std::string_view name) {
        return center_.addObserver(name,
                                   [this](const DistributedNotification& each) { seen_.push_back(each); });
    }
    /// The names of all that came; whatever was posted before this call is among them.
    std::vector<std::string> names() {
        bool isDone = false;
        const auto subscription = center_.addObserver("done", [&](const auto&) { isDone = true; });
        center_.post({"done", {}});
        EXPECT_TRUE(bench_->waitUntil([&] { return isDone; }));
        std::vector<std::string> all;
        for (const auto& each : seen_)
            all.push_back(each.name);
        return all;
    }

    std::unique_ptr<DistributedNotificationCenterBench> bench_ = GetParam()();
    DistributedNotificationCenter& center_ = bench_->center();
    std::vector<DistributedNotification> seen_;
};

TEST_P(DistributedNotificationCenterContract, OwnPostsComeOnceAndFromTheRunLoop) {
    const auto first = observe("first");
    const auto second = observe("second");
    center_.post({"first", {}});
    center_.post({"second", {}});
    center_.post({"unobserved", {}});
    EXPECT_TRUE(seen_.empty());
    EXPECT_THAT(names(), testing::ElementsAre("first", "second"));
    EXPECT_TRUE(seen_[0].userInfo.isNothing());
}

TEST_P(DistributedNotificationCenterContract, EveryObserverGetsANotificationUntilItEnds) {
    auto first = observe("name");
    const auto second = observe("name");
    center_.post({"name", {}});
    EXPECT_EQ(names().size(), 2U);
    first.end();
    center_.post({"name", {}});
    EXPECT_EQ(names().size(), 3U);
}

TEST_P(DistributedNotificationCenterContract, UserInfoArrivesAsItWasPosted) {
    const auto subscription = observe("name");
    const PropertyList userInfo = PropertyList::Dictionary{
        {"boolean", true},
        {"integer", std::int64_t{-5'000'000'000}},
        {"real", 0.5},
        {"text", "\xE2\x82\xAC"},
        {"data", PropertyList::Data{0, 255}},
        {"array", PropertyList::Array{1, "two", PropertyList::Array{}}},
        {"dictionary", PropertyList::Dictionary{{"inner", PropertyList::Dictionary{{"key", 1}}}}}};
    center_.post({"name", userInfo});
    EXPECT_EQ(names().size(), 1U);
    bench_->postFromOutside({"name", userInfo});
    EXPECT_TRUE(bench_->waitUntil([&] { return seen_.size() == 2; }));
    for (const auto& each : seen_)
        EXPECT_EQ(each.userInfo, userInfo);
}

} // namespace quorvane
