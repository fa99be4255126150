#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedUserDefaults.h"
#include "settings/AppRule.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "settings/LocationRule.h"
#include "settings/RuleTableOrder.h"
#include "settings/SwitchTimes.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

class Records : public testing::Test {
protected:
    SimulatedUserDefaults stores_;
    StandardUserDefaults& standard_ = stores_.standardUserDefaults();
};

TEST_F(Records, EditsOfARuleKeepTheRestOfItAndOtherRules) {
    standard_.setObject(Dictionary{{"other.app", "malformed"}}, key::autoInput);
    setRuleInput(standard_, "an.app", "xkb:ru");
    setRuleEnglishSymbol(standard_, "an.app", true);
    setRuleForceEnglishSymbols(standard_, "an.app", true);
    EXPECT_EQ(
        standard_.objectForKey(key::autoInput),
        (Dictionary{
            {"an.app", Dictionary{{"id", "xkb:ru"}, {"English Symbol", "1"}, {"Force English Symbols", 1}}},
            {"other.app", "malformed"}}));

    setRuleInput(standard_, "an.app", std::nullopt);
    setRuleEnglishSymbol(standard_, "an.app", false);
    const auto rule = AppRule::ofApplication(standard_.objectForKey(key::autoInput), "an.app");
    EXPECT_EQ(standard_.objectForKey(key::autoInput)["an.app"],
              (Dictionary{{"English Symbol", "0"}, {"Force English Symbols", 1}}));
    EXPECT_EQ(rule.id(), std::nullopt);
    EXPECT_FALSE(rule.englishSymbol());
    EXPECT_TRUE(rule.forceEnglishSymbols());

    removeRule(standard_, "an.app");
    EXPECT_EQ(standard_.objectForKey(key::autoInput), (Dictionary{{"other.app", "malformed"}}));
    EXPECT_EQ(stores_.synchronizations(""), 6) << "every edit waits for the disk";
}

TEST_F(Records, EditsOfALocationKeepWhatTheCompanionStored) {
    const PropertyList stored =
        Array{Dictionary{{"BundleIdentifier", "an.app"}, {"Name", "old"}, {"private", 7}}, "malformed",
              Dictionary{{"Name", 3}}};
    standard_.setObject(stored, key::arrOfLocationInfo);
    setLocationName(standard_, 0, "new");
    setLocationInput(standard_, 0, "xkb:de");
    for (const std::size_t unusable : {1U, 3U, 99U})
        setLocationName(standard_, unusable, "lost");
    removeLocation(standard_, 99);

    const auto rules = locationRules(standard_);
    ASSERT_EQ(rules.size(), 3U) << "an index here is an index in the store";
    EXPECT_EQ(rules[0].name, "new");
    EXPECT_EQ(rules[0].inputID, "xkb:de");
    EXPECT_EQ(rules[2].name, "");
    EXPECT_EQ((*standard_.objectForKey(key::arrOfLocationInfo).array())[0]["private"], PropertyList(7));

    setLocationInput(standard_, 0, std::nullopt);
    removeLocation(standard_, 1);
    EXPECT_EQ(standard_.objectForKey(key::arrOfLocationInfo),
              (Array{Dictionary{{"BundleIdentifier", "an.app"}, {"Name", "new"}, {"private", 7}},
                     Dictionary{{"Name", 3}}}));
}

TEST_F(Records, AShortcutWithoutModifiersIsValidOnlyOnAFunctionKey) {
    const struct {
        PropertyList record;
        bool isShortcut;
        bool isValid;
    } cases[] = {
        {Dictionary{{"keyCode", 0}, {"modifierFlags", 0x100000}}, true, true},
        {Dictionary{{"keyCode", 0}, {"modifierFlags", 0}}, true, false},
        {Dictionary{{"keyCode", 122}, {"modifierFlags", 0}}, true, true},  // F1
        {Dictionary{{"keyCode", 90.0}, {"modifierFlags", 0}}, true, true}, // F20
        {Dictionary{{"keyCode", "122"}, {"modifierFlags", 0}}, false, false},
        {Dictionary{{"keyCode", 122}}, false, false},
        {"nothing of the kind", false, false},
    };
    for (const auto& expected : cases) {
        const auto shortcut = InputShortcut::ofRecord(expected.record);
        EXPECT_EQ(shortcut.has_value(), expected.isShortcut);
        EXPECT_EQ(shortcut && shortcut->isValid(), expected.isValid);
    }
    setShortcut(standard_, "xkb:us", {.keyCode = 12, .modifierFlags = 0x40000});
    EXPECT_EQ(InputShortcut::ofRecord(standard_.objectForKey(key::shortcutOfInput)["xkb:us"]),
              (InputShortcut{.keyCode = 12, .modifierFlags = 0x40000}));
    removeShortcut(standard_, "xkb:us");
    EXPECT_EQ(standard_.objectForKey(key::shortcutOfInput), Dictionary{});
}

TEST_F(Records, TheRuleTableIsInTheUsersOrder) {
    const std::vector<std::string> found{"a", "b", "c", "d"};
    EXPECT_EQ(inUsersOrder(found, standard_), found);
    standard_.setObject(Array{"c", "gone", 5, "a", "c"}, key::orderOfAppsRule);
    EXPECT_THAT(inUsersOrder(found, standard_), testing::ElementsAre("c", "a", "b", "d"));
    standard_.setObject("malformed", key::orderOfAppsRule);
    EXPECT_EQ(inUsersOrder(found, standard_), found);
    setOrderOfAppsRule(standard_, {"d", "b"});
    EXPECT_THAT(inUsersOrder(found, standard_), testing::ElementsAre("d", "b", "a", "c"));
}

TEST_F(Records, AnApplicationHiddenTwiceIsShownByOneRequest) {
    hideFromRuleTable(standard_, "an.app");
    hideFromRuleTable(standard_, "other.app");
    hideFromRuleTable(standard_, "an.app");
    EXPECT_EQ(standard_.objectForKey(key::notDisplayAppName), (Array{"an.app", "other.app", "an.app"}));
    showInRuleTable(standard_, "an.app");
    EXPECT_FALSE(isHiddenFromRuleTable(standard_, "an.app"));
    EXPECT_TRUE(isHiddenFromRuleTable(standard_, "other.app"));
}

TEST_F(Records, TheCounterNeverOverflows) {
    countSwitch(standard_);
    EXPECT_EQ(standard_.integerForKey(key::switchTimes), 1);
    standard_.setObject(1e30, key::switchTimes);
    countSwitch(standard_);
    EXPECT_GT(standard_.integerForKey(key::switchTimes), 1);
    EXPECT_EQ(stores_.synchronizations(""), 0) << "a switch does not wait for the disk";
}

} // namespace
} // namespace quorvane
