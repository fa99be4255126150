#include <gmock/gmock.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

class FormerLaunchersTest : public ProgramTest {
protected:
    FormerLaunchersTest() {
        auto& facts = desktop_.desktop.facts.launchers;
        facts.identifiers = {"rofi", "dmenu"};
        facts.formerPrefix = "old.";
    }
    std::unique_ptr<UserDefaults> shared_ = openSharedDefaults(desktop_.defaults);
};

TEST_F(FormerLaunchersTest, RulesAndPlacesAreTakenOverInBothStores) {
    const Dictionary ru{{"id", "ru"}}, de{{"id", "de"}, {"English Symbol", "1"}}, us{{"id", "us"}};
    const struct {
        const char* what;
        std::string_view key;
        PropertyList before, after;
    } cases[] = {
        {"a rule", key::autoInput, Dictionary{{"old.rofi", ru}, {"app", us}},
         Dictionary{{"rofi", ru}, {"app", us}}},
        {"a newer rule counts", key::autoInput, Dictionary{{"old.rofi", de}, {"rofi", ru}},
         Dictionary{{"rofi", Dictionary{{"id", "ru"}, {"English Symbol", "1"}}}}},
        {"of no launcher here", key::autoInput, Dictionary{{"old.else", ru}, {"old.", ru}, {"old.rofi2", 3}},
         Dictionary{{"old.else", ru}, {"old.", ru}, {"old.rofi2", 3}}},
        {"no rules", key::autoInput, 7, 7},
        {"the order", key::orderOfAppsRule, Array{"app", "old.dmenu", 5, "old.rofi", "rofi"},
         Array{"app", "dmenu", 5, "rofi"}},
        {"removed rows", key::notDisplayAppName, Array{"old.rofi"}, Array{"rofi"}},
        {"no order", key::orderOfAppsRule, "old.rofi", "old.rofi"},
    };
    for (const auto& each : cases) {
        // Also when an earlier start was ended between one store and the other.
        for (UserDefaults* store : {static_cast<UserDefaults*>(&standard_), shared_.get()}) {
            store->setObject(each.before, each.key);
            launch();
            EXPECT_EQ(store->objectForKey(each.key), each.after) << each.what;
        }
    }
}

TEST_F(FormerLaunchersTest, NothingIsWrittenWhereThereIsNothingToTakeOver) {
    standard_.setObject(Dictionary{{"rofi", Dictionary{{"id", "ru"}}}}, key::autoInput);
    const auto subscription = standard_.addObserver(key::autoInput, [](auto) { ADD_FAILURE(); });
    launch();
    EXPECT_TRUE(shared_->objectForKey(key::autoInput).isNothing());
}

} // namespace
} // namespace quorvane
