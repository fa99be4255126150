#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "input/CompanionMessages.h"
#include "platform/TextInputSources.h"
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

TEST(Names, AreWhatIsStoredAndWhatOtherProgramsHear) {
    const std::pair<std::string_view, std::string_view> names[] = {
        {key::autoStartAtLogin, "autoStartAtLogin"},
        {key::notNeedRemindForAutoStartAtLogin, "NotNeedRemindForAutoStartAtLogin"},
        {key::enableTipOfState, "enableTipOfState"},
        {key::followWindow, "followWindow"},
        {key::hiddenIconInStatusBar, "hiddenIconInStatusBar"},
        {key::enableForceEnglishBrowserAddress, "enableForceEnglishBrowserAddress"},
        {key::autoInput, "autoInput"},
        {key::defaultInput, "defaultInput"},
        {key::orderOfAppsRule, "orderOfAppsRule"},
        {key::notDisplayAppName, "notDisplayAppName"},
        {key::shortcutOfInput, "shortcutOfInput"},
        {key::switchTimes, "SwitchTimes"},
        {key::arrOfLocationInfo, "arrOfLocationInfo"},
        {key::askTandrelSwitchInput, "AskTandrelSwitchInput"},
        {message::windowAdjusted, "AXWindowAdjusted"},
        {message::addLocationInfo, "AddLocationInfoByTandrel"},
        {message::askToSwitchInput, "AskTandrelSwitchInput"},
        {message::startSetUp, "StartSetUpSwitchInputByLocation"},
        {message::stopSetUp, "StopSetUpSwitchInputByLocation"},
        {selectedKeyboardInputSourceChangedNotification,
         "com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged"},
    };
    for (const auto& [name, literal] : names)
        EXPECT_EQ(name, literal);
}

class Records : public testing::Test {
protected:
    struct Edit {
        std::function<void()> edit;
        std::vector<std::string> writes;
    };

    void make(const std::vector<Edit>& edits) {
        journal_.take();
        for (const auto& [edit, writes] : edits) {
            edit();
            EXPECT_EQ(journal_.take(), writes);
        }
    }

    Journal journal_;
    SimulatedUserDefaults stores_{journal_};
    StandardUserDefaults& standard_ = stores_.standardUserDefaults();
};

TEST_F(Records, EditsKeepWhatTheyDoNotConcern) {
    standard_.setObject(Dictionary{{"b", "malformed"}}, key::autoInput);
    standard_.setObject(Array{Dictionary{{"Name", "old"}, {"theirs", 7}}, "malformed"},
                        key::arrOfLocationInfo);
    const std::string rules = "0 own autoInput = {", places = "0 own arrOfLocationInfo = ",
                      shortcuts = "0 own shortcutOfInput = ", done = "; synchronize own";
    make({
        {[&] { setRuleInput(standard_, "a", "ru"); }, {rules + "a: {id: 'ru'}, b: 'malformed'}" + done}},
        {[&] { setRuleEnglishSymbol(standard_, "a", true); },
         {rules + "a: {English Symbol: '1', id: 'ru'}, b: 'malformed'}" + done}},
        {[&] { setRuleInput(standard_, "a", std::nullopt); },
         {rules + "a: {English Symbol: '1'}, b: 'malformed'}" + done}},
        {[&] { setRuleEnglishSymbol(standard_, "b", false); },
         {rules + "a: {English Symbol: '1'}, b: {English Symbol: '0'}}" + done}},
        {[&] { removeRule(standard_, "a"); }, {rules + "b: {English Symbol: '0'}}" + done}},
        {[&] { setLocationName(standard_, 0, "new"); },
         {places + "[{Name: 'new', theirs: 7}, 'malformed']" + done}},
        {[&] { setLocationInput(standard_, 0, "de"); },
         {places + "[{InputID: 'de', Name: 'new', theirs: 7}, 'malformed']" + done}},
        {[&] { setLocationName(standard_, 1, "lost"); }, {}},
        {[&] { setLocationInput(standard_, 2, "lost"); }, {}},
        {[&] { removeLocation(standard_, 2); }, {}},
        {[&] { removeLocation(standard_, 1); },
         {places + "[{InputID: 'de', Name: 'new', theirs: 7}]" + done}},
        {[&] {
             setShortcut(standard_, "us", InputShortcut{12, 0x40000}.record());
         },
         {shortcuts + "{us: {keyCode: 12, modifierFlags: 262144}}" + done}},
        {[&] { removeShortcut(standard_, "us"); }, {shortcuts + "{}" + done}},
        {[&] { countSwitch(standard_); }, {"0 own SwitchTimes = 1"}},
    });
}

TEST_F(Records, WhatIsMalformedReadsAsEmpty) {
    standard_.setObject(Array{"malformed", Dictionary{{"Name", 3}}}, key::arrOfLocationInfo);
    for (const std::size_t unusable : {0U, 1U})
        EXPECT_EQ(locationRuleAt(standard_, unusable)->name, "") << unusable;
    EXPECT_FALSE(locationRuleAt(standard_, 2));
    standard_.setObject("malformed", key::arrOfLocationInfo);
    EXPECT_EQ(numberOfLocationRules(standard_), 0U);
    EXPECT_FALSE(locationRuleAt(standard_, 0));
    standard_.setObject(std::numeric_limits<std::int64_t>::max(), key::switchTimes);
    make({{[&] { countSwitch(standard_); }, {}}});
}

TEST_F(Records, TheRuleTableIsInTheUsersOrderWithoutWhatIsHidden) {
    const std::vector<std::string> found{"a", "b", "c", "d"};
    const std::pair<PropertyList, std::vector<std::string>> orders[] = {
        {{}, found}, {Array{"c", "gone", 5, "a", "c"}, {"c", "a", "b", "d"}}, {"malformed", found}};
    for (const auto& [order, rows] : orders) {
        standard_.setObject(order, key::orderOfAppsRule);
        EXPECT_EQ(inUsersOrder(found, standard_), rows);
    }
    for (const auto* id : {"a", "b", "a"})
        hideFromRuleTable(standard_, id);
    make({{[&] { showInRuleTable(standard_, "a"); }, {"0 own notDisplayAppName = ['b']; synchronize own"}}});
    EXPECT_FALSE(isHiddenFromRuleTable(standard_, "a"));
    EXPECT_TRUE(isHiddenFromRuleTable(standard_, "b"));
}

} // namespace
} // namespace quorvane
