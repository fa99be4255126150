#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProgramTest.h"
#include "switching/InputDecision.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dictionary = PropertyList::Dictionary;

PropertyList rule(const char* id) {
    return Dictionary{{"id", id}};
}

TEST(WantedInputSource, IsThatOfTheRuleElseTheDefaultOne) {
    const PropertyList rules = Dictionary{{"ru.app", rule("ru")},
                                          {"no.id", Dictionary{{"English Symbol", "1"}}},
                                          {"id.is.number", Dictionary{{"id", 7}}},
                                          {"rule.is.string", "ru"},
                                          {"", rule("never")}};
    const struct {
        PropertyList autoInput;
        std::optional<std::string> bundleIdentifier;
        std::optional<std::string> defaultInput;
        bool isLauncher;
        WantedInput wanted;
    } cases[] = {
        {rules, "ru.app", "us", false, {"ru", InputReason::rule}},
        {rules, "ru.app", std::nullopt, false, {"ru", InputReason::rule}},
        {rules, "ru.app", "us", true, {"ru", InputReason::launchersRule}},
        {rules, "unknown.app", "us", true, {"us", InputReason::defaultSource}},
        {rules, "unknown.app", std::nullopt, false, {std::nullopt, InputReason::nothing}},
        {rules, "no.id", "us", false, {"us", InputReason::defaultSource}},
        {rules, "id.is.number", "us", false, {"us", InputReason::defaultSource}},
        {rules, "rule.is.string", "us", false, {"us", InputReason::defaultSource}},
        {rules, std::nullopt, "us", false, {"us", InputReason::defaultSource}},
        {"no dictionary", "ru.app", "us", false, {"us", InputReason::defaultSource}},
        {{}, "ru.app", std::nullopt, false, {std::nullopt, InputReason::nothing}},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(wantedInput(expected.autoInput, expected.bundleIdentifier, expected.isLauncher,
                              expected.defaultInput),
                  expected.wanted)
            << expected.bundleIdentifier.value_or("none");
    }
}

class Switching : public ProgramTest {
protected:
    Switching() {
        for (const auto* id : {"us", "ru", "de"})
            desktop_.inputSources.enable({.id = id});
        setRule("ru.app", "ru");
        setRule("de.app", "de");
        launch();
    }

    /// Past the wait that the first activation always makes.
    void settleOnScreen() {
        desktop_.workspace.activate("first.app");
        desktop_.runLoop.advance(1);
    }
};

TEST_F(Switching, AnApplicationIsSwitchedATenthOfASecondAfterItCameToTheFront) {
    settleOnScreen();
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(0.099);
    EXPECT_THAT(selections(), IsEmpty());
    desktop_.runLoop.advance(0.001);
    EXPECT_THAT(selections(), ElementsAre("ru"));
    EXPECT_THAT(desktop_.interfaceFiles.window.orders, ElementsAre("front", "out"));
    EXPECT_EQ(openSharedDefaults(desktop_.defaults)->integerForKey(key::switchTimes), 1);
}

TEST_F(Switching, OnAnotherScreenTheDecisionWaitsForTheLastApplication) {
    settleOnScreen();
    desktop_.screens.main->number = 2;
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(0.19);
    desktop_.workspace.activate("de.app"); // same screen: decided at once, and again when the wait is over
    desktop_.runLoop.advance(0.01);
    EXPECT_THAT(selections(), IsEmpty());
    desktop_.runLoop.advance(1);
    EXPECT_THAT(selections(), ElementsAre("de", "de"));
}

TEST_F(Switching, TheSameApplicationIsDecidedOnceUntilNobodyIsInFront) {
    settleOnScreen();
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(1);
    desktop_.inputSources.selectFromOutside("us"); // the user's own choice
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(1);
    EXPECT_EQ(desktop_.inputSources.currentID(), "us");
    desktop_.workspace.quit("first.app");
    desktop_.workspace.quit("ru.app");
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(1);
    EXPECT_EQ(desktop_.inputSources.currentID(), "ru");
}

TEST_F(Switching, AnApplicationWithoutIdentifierIsDecidedEachTime) {
    settleOnScreen();
    desktop_.defaults.standardUserDefaults().setObject("de", key::defaultInput);
    for (int time = 0; time < 2; ++time) {
        desktop_.workspace.activate(RunningApplication{.localizedName = "nameless"});
        desktop_.runLoop.advance(1);
        desktop_.inputSources.selectFromOutside("us");
    }
    EXPECT_THAT(selections(), ElementsAre("de", "de"));
}

TEST_F(Switching, NothingHappensWithoutATargetOrWhenItIsCurrent) {
    settleOnScreen();
    desktop_.workspace.activate("unknown.app");
    desktop_.inputSources.selectFromOutside("ru");
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(1);
    EXPECT_THAT(selections(), IsEmpty());
    EXPECT_EQ(openSharedDefaults(desktop_.defaults)->integerForKey(key::switchTimes), 0);
}

TEST_F(Switching, ADesktopWithoutWaitsIsSwitchedBeforeAnythingElseHappens) {
    desktop_.desktop.facts.switchDelay = desktop_.desktop.facts.screenChangeDelay = 0;
    launch();
    desktop_.workspace.activate("ru.app");
    EXPECT_THAT(selections(), ElementsAre("ru"));
    desktop_.screens.main->number = 2;
    desktop_.workspace.activate("de.app");
    EXPECT_THAT(selections(), ElementsAre("ru", "de"));
    EXPECT_EQ(desktop_.runLoop.pendingCount(), 2U) << "only the two change notifications are on their way";
}

TEST_F(Switching, ARefusedSelectionIsNotTriedAgain) {
    settleOnScreen();
    desktop_.inputSources.refusesSelections = true;
    desktop_.workspace.activate("ru.app");
    desktop_.runLoop.advance(10);
    EXPECT_THAT(selections(), ElementsAre("ru"));
    EXPECT_EQ(desktop_.inputSources.currentID(), "us");
}

} // namespace
} // namespace quorvane
