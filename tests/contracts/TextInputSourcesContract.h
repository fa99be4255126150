#pragma once

#include "contracts/Contract.h"
#include "platform/TextInputSources.h"

namespace quorvane {

/// A desktop with the input sources `xkb:us`, `xkb:ru` and `xkb:de:neo`.
class TextInputSourcesBench : public ContractBench {
public:
    virtual TextInputSources& sources() = 0;

    /// How often the desktop has told that the selected source is another one.
    virtual int changesTold() const = 0;

    virtual void selectFromOutside(const std::string& id) = 0;

    /// The user takes a source out of those that are enabled.
    virtual void disable(const std::string& id) = 0;
};

inline std::vector<std::string> idsOf(const std::vector<InputSource>& sources) {
    std::vector<std::string> ids;
    for (const auto& source : sources)
        ids.push_back(source.id);
    return ids;
}

/// Of the selected source; "none" where there is none.
inline std::string currentIdIn(const TextInputSources& sources) {
    const auto current = sources.copyCurrentKeyboardInputSource();
    return current ? current->id : "none";
}

class TextInputSourcesContract : public Contract<TextInputSourcesBench> {
protected:
    bool waitForCurrent(const std::string& id) {
        return waitUntil([&] { return currentIdIn(sources_) == id; });
    }
    bool select(const std::string& id) { return sources_.selectInputSource({.id = id}); }

    TextInputSources& sources_ = bench_->sources();
};

TEST_P(TextInputSourcesContract, ListsTheEnabledSourcesInTheUsersOrder) {
    const auto sources = sources_.createInputSourceList();
    EXPECT_THAT(idsOf(sources), testing::ElementsAre("xkb:us", "xkb:ru", "xkb:de:neo"));
    for (const auto& source : sources) {
        EXPECT_EQ(source.category, InputSourceCategory::keyboard);
        EXPECT_TRUE(source.isSelectCapable);
        EXPECT_FALSE(sources_.localizedName(source).empty());
        EXPECT_THAT(sources_.createInputSourceList(source.id), testing::ElementsAre(source));
    }
    EXPECT_THAT(sources_.createInputSourceList("xkb:nosuch"), testing::IsEmpty());
}

TEST_P(TextInputSourcesContract, ASelectionTakesEffectAndIsToldWhoeverMadeIt) {
    ASSERT_TRUE(select("xkb:ru"));
    EXPECT_TRUE(waitForCurrent("xkb:ru"));
    EXPECT_TRUE(waitUntil([&] { return bench_->changesTold() > 0; }));
    EXPECT_EQ(sources_.copyCurrentKeyboardLayoutInputSource()->id, "xkb:ru");
    const auto told = bench_->changesTold();
    bench_->selectFromOutside("xkb:de:neo");
    EXPECT_TRUE(waitForCurrent("xkb:de:neo"));
    EXPECT_TRUE(waitUntil([&] { return bench_->changesTold() > told; }));
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
    ASSERT_TRUE(waitUntil([&] { return sources_.createInputSourceList().size() == 2; }));
    EXPECT_FALSE(select("xkb:us"));
    EXPECT_TRUE(waitForCurrent("xkb:ru")) << "whatever its new place in the list";
    bench_->disable("xkb:ru");
    EXPECT_TRUE(waitForCurrent("xkb:de:neo"));
}

} // namespace quorvane
