#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/PropertyList.h"

namespace quorvane {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

struct Reading {
    PropertyList value;
    bool asBool;
    std::int64_t asInteger;
};

TEST(PropertyList, ReadsEveryTypeAsATruthAndAsAWholeNumber) {
    const Reading readings[] = {
        {{}, false, 0},
        {true, true, 1},
        {7, true, 7},
        {-2.9, true, -2},
        {0.5, true, 0},
        {std::nan(""), false, 0},
        {1e300, true, Limits::max()},
        {-1e300, true, Limits::min()},
        {9223372036854775808.0, true, Limits::max()},
        {"YES", true, 0},
        {"true", true, 0},
        {"0", false, 0},
        {"12 points", true, 12},
        {"no", false, 0},
        {PropertyList::Array{1}, false, 0},
        {PropertyList::Data{1}, false, 0},
    };
    for (std::size_t i = 0; i < std::size(readings); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(readings[i].value.boolValue(), readings[i].asBool);
        EXPECT_EQ(readings[i].value.integerValue(), readings[i].asInteger);
    }
}

TEST(PropertyList, ChangingACopyLeavesTheOriginalAlone) {
    const PropertyList original = PropertyList::Dictionary{{"kept", 1}, {"changed", "old"}};
    const auto changed = original.with("changed", "new").with("added", true).with("kept", {});
    EXPECT_EQ(original, (PropertyList::Dictionary{{"kept", 1}, {"changed", "old"}}));
    EXPECT_EQ(changed, (PropertyList::Dictionary{{"changed", "new"}, {"added", true}}));
    EXPECT_EQ(PropertyList("no dictionary").with("key", 1), (PropertyList::Dictionary{{"key", 1}}));
    EXPECT_TRUE(original["missing"]["deeper"].isNothing());
}

} // namespace
} // namespace quorvane
