#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/PropertyList.h"

namespace quorvane {
namespace {

TEST(PropertyList, ReadsEveryTypeAsATruthAndAsAWholeNumber) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    // clang-format off
    const struct {
        PropertyList value;
        bool asBool;
        std::int64_t asInteger;
    } readings[] = {
        {{}, false, 0}, {true, true, 1}, {7, true, 7}, {-2.9, true, -2}, {0.5, true, 0},
        {std::nan(""), false, 0}, {1e300, true, largest}, {-1e300, true, smallest},
        {9223372036854775808.0, true, largest}, {"YES", true, 0}, {"true", true, 0}, {"0", false, 0},
        {"12 points", true, 12}, {"no", false, 0}, {PropertyList::Array{1}, false, 0},
        {PropertyList::Data{1}, false, 0},
    };
    // clang-format on
    for (std::size_t i = 0; i < std::size(readings); ++i) {
        EXPECT_EQ(readings[i].value.boolValue(), readings[i].asBool) << i;
        EXPECT_EQ(readings[i].value.integerValue(), readings[i].asInteger) << i;
    }
    const std::pair<PropertyList, double> numbers[] = {
        {{}, 0},      {true, 1},      {7, 7},
        {-0.5, -0.5}, {"0.05", 0.05}, {" -1e3 points", -1000},
        {"0,5", 0},   {"points", 0},  {PropertyList::Array{1}, 0}};
    for (const auto& [value, number] : numbers)
        EXPECT_EQ(value.realValue(), number);
}

TEST(PropertyList, ChangingACopyLeavesTheOriginalAlone) {
    using Dictionary = PropertyList::Dictionary;
    const PropertyList original = Dictionary{{"kept", 1}, {"changed", "old"}};
    const auto changed = original.with("changed", "new").with("added", true).with("kept", {});
    EXPECT_EQ(original, (Dictionary{{"kept", 1}, {"changed", "old"}}));
    EXPECT_EQ(changed, (Dictionary{{"changed", "new"}, {"added", true}}));
    EXPECT_EQ(PropertyList("no dictionary").with("key", 1), (Dictionary{{"key", 1}}));
    EXPECT_TRUE(original["missing"]["deeper"].isNothing());
}

} // namespace
} // namespace quorvane
