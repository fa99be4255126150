#include <gmock/gmock.h>

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
    EXPECT_TRUE(AppRule::ofApplication(standard_.objectForKey(key::autoInput), "an.app").englishSymbol());
    const Dictionary made{{"id", "xkb:ru"}, {"English Symbol", "1"}, {"Force English Symbols", 1}};
    EXPECT_EQ(standard_.objectForKey(key::autoInput),
              (Dictionary{{"an.app", made}, {"other.app", "malformed"}}));

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
    const Dictionary nameless{{"Name", 3}};
    Dictionary location{{"BundleIdentifier", "an.app"}, {"Name", "old"}, {"private", 7}};
    standard_.setObject(Array{location, "malformed", nameless}, key::arrOfLocationInfo);
    setLocationName(standard_, 0, "new");
    setLocationInput(standard_, 0, "xkb:de");
    for (const std::size_t unusable : {1U, 3U, 99U})
        setLocationName(standard_, unusable, "lost");
    for (const std::size_t missing : {3U, 99U})
        removeLocation(standard_, missing);

    const auto rules = locationRules(standard_);
    ASSERT_EQ(rules.size(), 3U) << "an index here is an index in the store";
    EXPECT_EQ(rules[0].name, "new");
    EXPECT_EQ(rules[0].inputID, "xkb:de");
    for (const std::size_t unusable : {1U, 2U})
        EXPECT_EQ(rules[unusable].name, "") << unusable;

    setLocationInput(standard_, 0, std::nullopt);
    removeLocation(standard_, 1);
    location["Name"] = "new";
    EXPECT_EQ(standard_.objectForKey(key::arrOfLocationInfo), (Array{location, nameless}));
}

TEST_F(Records, AShortcutWithoutModifiersIsValidOnlyOnAFunctionKey) {
    constexpr int f1 = 122, f20 = 90;
    const auto record = [](PropertyList keyCode, PropertyList flags) {
        return Dictionary{{"keyCode", std::move(keyCode)}, {"modifierFlags", std::move(flags)}};
    };
    const struct {
        PropertyList record;
        bool isShortcut, isValid;
    } cases[] = {{record(0, 0x100000), true, true},    {record(0, 0), true, false},
                 {record(f1, 0), true, true},          {record(double(f20), 0), true, true},
                 {record("122", 0), true, true},       {record(f1, {}), true, true},
                 {record({}, 0x100000), true, true},   {record({}, 0), false, false},
                 {"nothing of the kind", false, false}};
    for (const auto& expected : cases) {
        const auto shortcut = InputShortcut::ofRecord(expected.record);
        EXPECT_EQ(shortcut.has_value(), expected.isShortcut);
        EXPECT_EQ(shortcut && shortcut->isValid(), expected.isValid);
    }
    setShortcut(standard_, "xkb:us", InputShortcut{12, 0x40000}.record());
    EXPECT_EQ(standard_.objectForKey(key::shortcutOfInput), (Dictionary{{"xkb:us", record(12, 0x40000)}}));
    removeShortcut(standard_, "xkb:us");
    EXPECT_EQ(standard_.objectForKey(key::shortcutOfInput), Dictionary{});
}

TEST_F(Records, TheRuleTableIsInTheUsersOrderWithoutWhatIsHidden) {
    const std::vector<std::string> found{"a", "b", "c", "d"};
    EXPECT_EQ(inUsersOrder(found, standard_), found);
    standard_.setObject(Array{"c", "gone", 5, "a", "c"}, key::orderOfAppsRule);
    EXPECT_THAT(inUsersOrder(found, standard_), testing::ElementsAre("c", "a", "b", "d"));
    standard_.setObject("malformed", key::orderOfAppsRule);
    EXPECT_EQ(inUsersOrder(found, standard_), found);
    setOrderOfAppsRule(standard_, {"d", "b"});
    EXPECT_THAT(inUsersOrder(found, standard_), testing::ElementsAre("d", "b", "a", "c"));

    for (const auto* id : {"an.app", "other.app", "an.app"})
        hideFromRuleTable(standard_, id);
    EXPECT_EQ(standard_.objectForKey(key::notDisplayAppName), (Array{"an.app", "other.app", "an.app"}));
    showInRuleTable(standard_, "an.app");
    EXPECT_FALSE(isHiddenFromRuleTable(standard_, "an.app")) << "though hidden twice";
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
