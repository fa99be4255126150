#include <gtest/gtest.h>

#include "settings/FormerLaunchers.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

TEST_F(ProgramTest, RulesAndPlacesOfFormerLaunchersAreTakenOver) {
    const LauncherFacts launchers{
        .areTold = true, .identifiers = {"rofi", "dmenu"}, .identifierPrefixes = {}, .formerPrefix = "old."};
    const Dictionary ru{{"id", "ru"}}, de{{"id", "de"}, {"English Symbol", "1"}}, us{{"id", "us"}};
    const struct {
        const char* what;
        std::string_view key;
        PropertyList before;
        const char* after; ///< Empty: nothing is written.
    } cases[] = {
        {"a rule", key::autoInput, Dictionary{{"old.rofi", ru}, {"app", us}},
         "{app: {id: 'us'}, rofi: {id: 'ru'}}"},
        {"a newer rule counts", key::autoInput, Dictionary{{"old.rofi", de}, {"rofi", ru}},
         "{rofi: {English Symbol: '1', id: 'ru'}}"},
        {"of no launcher here", key::autoInput, Dictionary{{"old.else", ru}, {"old.", ru}, {"old.rofi2", 3}},
         ""},
        {"nothing to take over", key::autoInput, Dictionary{{"rofi", ru}}, ""},
        {"no rules", key::autoInput, 7, ""},
        {"the order", key::orderOfAppsRule, Array{"app", "old.dmenu", 5, "old.rofi", "rofi"},
         "['app', 'dmenu', 5, 'rofi']"},
        {"removed rows", key::notDisplayAppName, Array{"old.rofi"}, "['rofi']"},
        {"no order", key::orderOfAppsRule, "old.rofi", ""},
    };
    for (const auto& [what, key, before, after] : cases) {
        standard_.setObject(before, key);
        desktop_.journal.take();
        takeOverFormerLaunchers(standard_, launchers);
        const auto writes = "0 own " + std::string(key) + " = " + after + "; synchronize own";
        EXPECT_EQ(desktop_.journal.take(), *after ? Lines{writes} : Lines{}) << what;
        standard_.removeObjectForKey(key);
    }
}

TEST_F(ProgramTest, BothStoresAreLookedThroughAtTheStart) {
    auto& facts = desktop_.desktop.facts.launchers;
    facts.identifiers = {"rofi"};
    facts.formerPrefix = "old.";
    setRule("old.rofi", "ru");
    standard_.setObject(Dictionary{{"old.rofi", Dictionary{{"id", "de"}}}}, key::autoInput);
    launch();
    EXPECT_EQ(textOf(standard_.objectForKey(key::autoInput)), "{rofi: {id: 'de'}}");
    EXPECT_EQ(textOf(shared(key::autoInput)["rofi"]), "{id: 'ru'}");
}

} // namespace
} // namespace quorvane
