#include <limits>

#include <gmock/gmock.h>

#include "control/PlainValue.h"
#include "control/SettingsDocument.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;
using testing::ElementsAre;

const char* const ownKeys[] = {"autoInput",
                               "defaultInput",
                               "orderOfAppsRule",
                               "notDisplayAppName",
                               "shortcutOfInput",
                               "autoStartAtLogin",
                               "enableTipOfState",
                               "followWindow",
                               "hiddenIconInStatusBar",
                               "enableForceEnglishBrowserAddress",
                               "NotNeedRemindForAutoStartAtLogin"};
const char* const sharedKeys[] = {"arrOfLocationInfo"};

/// One of each kind, and what looks like another kind when it is written down.
const PropertyList kinds[] = {
    true,
    7,
    std::numeric_limits<std::int64_t>::min(),
    "text \"Ä\"",
    "",
    0.5,
    3.0,
    -std::numeric_limits<double>::infinity(),
    PropertyList::Date{-1.25},
    PropertyList::Data{0, 255, 16},
    PropertyList::Data{},
    Array{},
    Array{1, Array{"a"}, Dictionary{{"b", 2.0}}},
    Dictionary{},
    Dictionary{{"id", "ru"}, {"unknown", Dictionary{{"deep", PropertyList::Data{1}}}}},
    Dictionary{{"$data", "no data"}},
    Dictionary{{"$data", "00"}},
    Dictionary{{"$real", "1"}},
    Dictionary{{"$dictionary", Dictionary{{"$date", 1}}}},
    Dictionary{{"$data", "00"}, {"$date", "1"}}};

/// Whether every notation has it.
bool isPlain(const PropertyList& value) {
    if (value.date() || value.data()) return false;
    if (const auto* array = value.array()) return std::ranges::all_of(*array, isPlain);
    const auto* dictionary = value.dictionary();
    return !dictionary ||
           std::ranges::all_of(*dictionary, [](const auto& entry) { return isPlain(entry.second); });
}

struct SettingsDocuments : testing::Test {
    UserDefaults& own() { return desktop_.defaults.standardUserDefaults(); }
    std::string changes(const PropertyList& document, ImportManner manner) {
        const auto all = changesBy(document, desktop_.defaults, manner);
        if (!all) return "none of ours";
        std::string text;
        for (const auto& [setting, entry, before, after] : *all)
            text += (before.isNothing() ? "+" : after.isNothing() ? "-" : "~") + setting + ":" + entry + " ";
        return text;
    }

    SimulatedDesktop desktop_;
};

TEST_F(SettingsDocuments, TakeEveryKindOfValueOfEveryKeyToAnotherDesktop) {
    SimulatedDesktop other;
    const auto everyKey = [&](const auto& visit) {
        for (const auto* key : ownKeys)
            visit(key, desktop_.defaults.standardUserDefaults(), other.defaults.standardUserDefaults());
        const auto from = desktop_.defaults.initWithSuiteName(maker::sharedSuiteName);
        const auto to = other.defaults.initWithSuiteName(maker::sharedSuiteName);
        for (const auto* key : sharedKeys)
            visit(key, *from, *to);
        for (const auto* counted : {"SwitchTimes", "AskTandrelSwitchInput"}) {
            from->setObject("here", counted);
            EXPECT_TRUE(to->objectForKey(counted).isNothing()) << counted;
        }
    };
    for (const auto& kind : kinds) {
        everyKey([&](auto* key, auto& from, auto&) { from.setObject(kind, key); });
        const auto document = settingsDocument(desktop_.defaults);
        EXPECT_TRUE(isPlain(document));
        const auto brought = changesBy(document, other.defaults, ImportManner::replace);
        ASSERT_TRUE(brought);
        makeChanges(*brought, other.defaults);
        everyKey([&](auto* key, auto&, auto& to) { EXPECT_EQ(to.objectForKey(key), kind) << key; });
        EXPECT_TRUE(changesBy(document, other.defaults, ImportManner::replace)->empty());
    }
    makeChanges(*changesBy(Dictionary{{"quorvane", 1}}, other.defaults, ImportManner::replace),
                other.defaults);
    everyKey([&](auto* key, auto&, auto& to) { EXPECT_TRUE(to.objectForKey(key).isNothing()) << key; });
}

TEST_F(SettingsDocuments, SayWhatTheUserSetNotWhatOthersShare) {
    desktop_.defaults.standardUserDefaults().addSuiteNamed(maker::sharedSuiteName);
    desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::autoInput,
                                       Dictionary{{"a", Dictionary{}}});
    EXPECT_EQ(settingsDocument(desktop_.defaults), PropertyList(Dictionary{{"quorvane", 1}}));
}

TEST_F(SettingsDocuments, AreMergedOrReplaceWhatIsSet) {
    const auto location = [](const char* name, const char* input) -> PropertyList {
        return Dictionary{{"BundleIdentifier", "a"}, {"Name", name}, {"InputID", input}};
    };
    own().setObject(Dictionary{{"a", Dictionary{{"id", "ru"}}}, {"b", Dictionary{{"id", "de"}}}},
                    key::autoInput);
    own().setObject(Array{"a"}, key::orderOfAppsRule);
    own().setObject("us", key::defaultInput);
    own().setObject(true, key::followWindow);
    const auto shared = desktop_.defaults.initWithSuiteName(maker::sharedSuiteName);
    shared->setObject(Array{location("one", "ru"), location("two", "de")}, key::arrOfLocationInfo);
    const PropertyList document =
        Dictionary{{"quorvane", 1},
                   {"of a later edition", 9},
                   {"rules", Dictionary{{"a", Dictionary{{"id", "ru"}}}, {"c", Dictionary{}}}},
                   {"order", Array{"b", "a"}},
                   {"options", Dictionary{{"enableTipOfState", true}, {"unknown", 1}}},
                   {"locations", Array{location("two", "us"), location("three", "us")}}};
    EXPECT_EQ(changes(document, ImportManner::replace),
              "-rules:b +rules:c ~order: ~locations: -defaultSource: +options:enableTipOfState "
              "-options:followWindow ");
    EXPECT_EQ(changes(document, ImportManner::merge),
              "+rules:c ~order: ~locations: +options:enableTipOfState ");

    desktop_.journal.take();
    makeChanges(*changesBy(document, desktop_.defaults, ImportManner::merge), desktop_.defaults);
    EXPECT_THAT(desktop_.journal.take(),
                ElementsAre(testing::ContainsRegex(
                    "^0 own autoInput = .*; own orderOfAppsRule = .*; suite arrOfLocationInfo = .*; own "
                    "enableTipOfState = true; synchronize own; synchronize suite$")));
    EXPECT_EQ(shared->objectForKey(key::arrOfLocationInfo),
              PropertyList(Array{location("one", "ru"), location("two", "us"), location("three", "us")}));
    EXPECT_EQ(own().objectForKey(key::autoInput)["b"]["id"], PropertyList("de"));
    for (const auto& [none, what] : {std::pair<PropertyList, const char*>{Dictionary{}, "no version"},
                                     {Dictionary{{"quorvane", 2}}, "a later one"},
                                     {Dictionary{{"quorvane", "1"}}, "a text"},
                                     {Array{1}, "a list"},
                                     {{}, "nothing"}})
        EXPECT_EQ(changes(none, ImportManner::replace), "none of ours") << what;
}

} // namespace
} // namespace quorvane
