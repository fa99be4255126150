#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/TextInputSources.h"

namespace quorvane {

/// A desktop with the input sources `xkb:us`, `xkb:ru` and `xkb:de:neo`, and its user, as the suite below
/// needs them.
class TextInputSourcesBench {
public:
    virtual ~TextInputSourcesBench() = default;

    virtual TextInputSources& sources() = 0;
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;

    /// How often the desktop has told that the selected source is another one.
    virtual int changesTold() const = 0;

    virtual void selectFromOutside(const std::string& id) = 0;

    /// The user takes a source out of those that are enabled.
    virtual void disable(const std::string& id) = 0;
};

class TextInputSourcesContract
    : public testing::TestWithParam<std::function<std::unique_ptr<TextInputSourcesBench>()>> {
protected:
    std::vector<std::string> ids() const {
        std::vector<std::string> ids;
        for (const auto& source : sources_.createInputSourceList())
            ids.push_back(source.id);
        return ids;
    }
    std::string currentID() const {
        const auto current = sources_.copyCurrentKeyboardInputSource();
        return current ? current->id : "";
    }
    bool waitForCurrent(const std::string& id) {
        return bench_->waitUntil([&] { return currentID() == id; });
    }
    bool select(const std::string& id) { return sources_.selectInputSource({.id = id}); }

    std::unique_ptr<TextInputSourcesBench> bench_ = GetParam()();
    TextInputSources& sources_ = bench_->sources();
};

TEST_P(TextInputSourcesContract, ListsTheEnabledSourcesInTheUsersOrder) {
    EXPECT_THAT(ids(), testing::ElementsAre("xkb:us", "xkb:ru", "xkb:de:neo"));
    for (const auto& source : sources_.createInputSourceList()) {
        EXPECT_EQ(source.category, InputSourceCategory::keyboard);
        EXPECT_TRUE(source.isSelectCapable);
        EXPECT_FALSE(sources_.localizedName(source).empty());
        EXPECT_THAT(sources_.createInputSourceList(source.id), testing::ElementsAre(source));
    }
    EXPECT_THAT(sources_.createInputSourceList("xkb:nosuch"), testing::IsEmpty());
}

TEST_P(TextInputSourcesContract, ASelectionTakesEffectAndIsToldWhoeverMadeIt) {
    ASSERT_TRUE(select("xkb:ru"));
    EXPECT_TRUE(bench_->waitUntil([&] { return currentID() == "xkb:ru" && bench_->changesTold() > 0; }));
    EXPECT_EQ(sources_.copyCurrentKeyboardLayoutInputSource()->id, "xkb:ru");
    const auto told = bench_->changesTold();
    bench_->selectFromOutside("xkb:de:neo");
    EXPECT_TRUE(
        bench_->waitUntil([&] { return currentID() == "xkb:de:neo" && bench_->changesTold() > told; }));
    // A selection just after somebody else's wins, though the news of that one comes later.
    bench_->selectFromOutside("xkb:us");
    ASSERT_TRUE(select("xkb:ru"));
    bench_->selectFromOutside("xkb:de:neo");
    ASSERT_TRUE(select("xkb:us"));
    EXPECT_TRUE(waitForCurrent("xkb:us"));
}

TEST_P(TextInputSourcesContract, ASourceThatIsGoneIsRefused) {
    ASSERT_TRUE(select("xkb:ru"));
    ASSERT_TRUE(waitForCurrent("xkb:ru"));
    bench_->disable("xkb:us");
    ASSERT_TRUE(bench_->waitUntil([&] { return ids().size() == 2; }));
    EXPECT_FALSE(select("xkb:us"));
    EXPECT_TRUE(waitForCurrent("xkb:ru")) << "whatever its new place in the list";
    bench_->disable("xkb:ru");
    EXPECT_TRUE(waitForCurrent("xkb:de:neo"));
}

} // namespace quorvane
