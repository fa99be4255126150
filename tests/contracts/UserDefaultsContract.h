#pragma once

#include "contracts/Contract.h"
#include "platform/UserDefaults.h"

namespace quorvane {

class UserDefaultsBench : public ContractBench {
public:
    virtual UserDefaultsStores& stores() = 0;

    /// What another program does. The empty suite is this program's own domain.
    virtual void writeFromOutside(const std::string& suite, const std::string& key, PropertyList value) = 0;
    virtual PropertyList readFromOutside(const std::string& suite, const std::string& key) = 0;
};

class UserDefaultsContract : public Contract<UserDefaultsBench> {
protected:
    /// Remembers what the key reads as at each notification of it.
    Subscription observe(std::string_view key) {
        return standard_.addObserver(
            key, [this](std::string_view changed) { seen_.push_back(standard_.objectForKey(changed)); });
    }
    bool waitUntilOthersSee(const std::string& suite, const std::string& key, const PropertyList& value) {
        return waitUntil([&] { return bench_->readFromOutside(suite, key) == value; });
    }

    StandardUserDefaults& standard_ = bench_->stores().standardUserDefaults();
    std::unique_ptr<UserDefaults> suite_ = bench_->stores().initWithSuiteName("group.suite");
    std::vector<PropertyList> seen_;
};

TEST_P(UserDefaultsContract, MissingAndRemovedKeysReadAsNothing) {
    for (UserDefaults* defaults : {static_cast<UserDefaults*>(&standard_), suite_.get()}) {
        EXPECT_TRUE(defaults->objectForKey("key").isNothing());
        defaults->setObject("text", "key");
        defaults->removeObjectForKey("key");
        EXPECT_TRUE(defaults->objectForKey("key").isNothing());
        EXPECT_FALSE(defaults->boolForKey("key"));
        EXPECT_EQ(defaults->integerForKey("key"), 0);
        EXPECT_FALSE(defaults->stringForKey("key"));
        EXPECT_TRUE(defaults->synchronize());
    }
}

TEST_P(UserDefaultsContract, AWriteIsReadByAllObjectsOnItsSuiteAtOnceAndByOtherPrograms) {
    const auto sameSuite = bench_->stores().initWithSuiteName("group.suite");
    const auto otherSuite = bench_->stores().initWithSuiteName("group.other");
    using Array = PropertyList::Array;
    using Dictionary = PropertyList::Dictionary;
    // clang-format off
    const PropertyList values[] = {
        true, 0, std::int64_t{-5'000'000'000}, 0.1, "<&> \xE2\x82\xAC \"quoted\"\n", "",
        PropertyList::Data{0, 255}, PropertyList::Date{1.0}, Array{1, "two", Array{}},
        Dictionary{{"org.example.editor", Dictionary{{"id", "xkb:ru"}}}, {"", 1}}};
    // clang-format on
    for (const auto& value : values) {
        suite_->setObject(value, "key");
        EXPECT_EQ(suite_->objectForKey("key"), value);
        EXPECT_EQ(sameSuite->objectForKey("key"), value);
        EXPECT_TRUE(waitUntilOthersSee("group.suite", "key", value));
    }
    EXPECT_TRUE(otherSuite->objectForKey("key").isNothing());
    EXPECT_TRUE(standard_.objectForKey("key").isNothing());
    PropertyList written;
    suite_->setObject("before it is told", "key");
    const auto waiting =
        suite_->whenWritten([&] { written = bench_->readFromOutside("group.suite", "key"); });
    EXPECT_TRUE(waitUntil([&] { return written == PropertyList("before it is told"); }));
    standard_.setObject("durable", "key");
    EXPECT_TRUE(standard_.synchronize());
    EXPECT_EQ(bench_->readFromOutside("", "key"), PropertyList("durable"));
}

TEST_P(UserDefaultsContract, EveryOwnWriteIsToldOnceAndAtOnce) {
    auto subscription = observe("key");
    standard_.setObject("same", "key");
    standard_.setObject("same", "key");
    standard_.setObject("other", "other key");
    standard_.removeObjectForKey("key");
    EXPECT_THAT(seen_, testing::ElementsAre("same", "same", PropertyList()));
    EXPECT_TRUE(waitUntilOthersSee("", "other key", "other"));
    bench_->writeFromOutside("", "key", "outside"); // comes after whatever the writes above may still tell
    EXPECT_TRUE(waitUntil([&] { return !seen_.empty() && seen_.back() == PropertyList("outside"); }));
    EXPECT_EQ(seen_.size(), 4U);
    subscription.end();
    standard_.setObject("unheard", "key");
    EXPECT_EQ(seen_.size(), 4U);
}

TEST_P(UserDefaultsContract, WritesOfOtherProgramsAreReadAndTold) {
    const auto subscription = observe("key");
    for (const auto& value : {PropertyList("first"), PropertyList("second"), PropertyList()}) {
        seen_.clear();
        bench_->writeFromOutside("", "key", value);
        EXPECT_EQ(standard_.objectForKey("key"), value);
        EXPECT_TRUE(waitUntil([&] { return !seen_.empty(); }));
        EXPECT_THAT(seen_, testing::ElementsAre(value));
        bench_->writeFromOutside("group.suite", "key", value);
        EXPECT_EQ(suite_->objectForKey("key"), value);
    }
}

TEST_P(UserDefaultsContract, AnAddedSuiteIsReadAndToldWhereTheOwnDomainLacksTheKey) {
    const auto subscription = observe("key");
    int ownWrites = 0;
    const auto ownSubscription = standard_.ownDomain().addObserver("key", [&](auto) { ++ownWrites; });
    suite_->setObject("not added yet", "key");
    for (int time = 0; time < 2; ++time)
        standard_.addSuiteNamed("group.suite");
    EXPECT_EQ(standard_.objectForKey("key"), PropertyList("not added yet"));
    suite_->setObject("by this program", "key");
    EXPECT_THAT(seen_, testing::ElementsAre("by this program"));
    EXPECT_TRUE(waitUntilOthersSee("group.suite", "key", "by this program"));
    bench_->writeFromOutside("group.suite", "key", "by another program");
    EXPECT_TRUE(waitUntil([&] { return seen_.size() == 2; }));
    standard_.setObject("own", "key");
    suite_->setObject("hidden", "key");
    EXPECT_EQ(standard_.objectForKey("key"), PropertyList("own"));
    standard_.removeObjectForKey("key");
    EXPECT_THAT(seen_, testing::ElementsAre("by this program", "by another program", "own", "hidden"));
    EXPECT_TRUE(standard_.ownDomain().objectForKey("key").isNothing());
    EXPECT_EQ(ownWrites, 2) << "set and removed";
}

} // namespace quorvane
