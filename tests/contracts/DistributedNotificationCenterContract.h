#pragma once

#include "contracts/Contract.h"
#include "platform/DistributedNotificationCenter.h"

namespace quorvane {

class DistributedNotificationCenterBench : public ContractBench {
public:
    virtual DistributedNotificationCenter& center() = 0;
    virtual void postFromOutside(const DistributedNotification& notification) = 0;
};

class DistributedNotificationCenterContract : public Contract<DistributedNotificationCenterBench> {
protected:
    Subscription observe(std::string_view name) {
        return center_.addObserver(name, [this](const auto& each) { seen_.push_back(each); });
    }
    /// The names of all that came; whatever was posted before this call is among them.
    std::vector<std::string> names() {
        bool isDone = false;
        const auto subscription = center_.addObserver("done", [&](const auto&) { isDone = true; });
        center_.post({"done", {}});
        EXPECT_TRUE(waitUntil([&] { return isDone; }));
        std::vector<std::string> all;
        for (const auto& each : seen_)
            all.push_back(each.name);
        return all;
    }

    DistributedNotificationCenter& center_ = bench_->center();
    std::vector<DistributedNotification> seen_;
};

TEST_P(DistributedNotificationCenterContract, OwnPostsComeFromTheRunLoopOnceToEveryObserverUntilItEnds) {
    const auto first = observe("first");
    auto second = observe("second");
    const auto secondToo = observe("second");
    for (const auto* name : {"first", "second", "unobserved"})
        center_.post({name, {}});
    EXPECT_TRUE(seen_.empty());
    EXPECT_THAT(names(), testing::ElementsAre("first", "second", "second"));
    EXPECT_TRUE(seen_[0].userInfo.isNothing());
    second.end();
    center_.post({"second", {}});
    EXPECT_EQ(names().size(), 4U);
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
    EXPECT_TRUE(waitUntil([&] { return seen_.size() == 2; }));
    for (const auto& each : seen_)
        EXPECT_EQ(each.userInfo, userInfo);
}

} // namespace quorvane
