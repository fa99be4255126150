#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProgramTest.h"
#include "switching/WantedInput.h"

namespace quorvane {
namespace {

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

const std::string switchToRu = switchTo("ru"), askForRu = "suite AskTandrelSwitchInput = 'ru'";

const Story activations[] = {
    {"its rule, after a tenth of a second", "ru.app 1", {"0.1 " + switchToRu}},
    {"the default source", "launch first.app 1 own:defaultInput=de | other.app 1", {"0.1 " + switchTo("de")}},
    {"nothing says which", "other.app 1", {}},
    {"it is current already", "=ru ru.app 1", {}},
    {"the first one after the start", "launch | ru.app 1", {"0.3 " + switchToRu}},
    {"on another screen", "screen:2 ru.app 1", {"0.3 " + switchToRu}},
    {"and back on the first",
     "launch first.app 1 screen:2 de.app 1 screen:1 | ru.app 1",
     {"0.3 " + switchTo("ru", "de", 2)}},
    {"without a screen", "no-screen ru.app 1", {"0.3 " + switchToRu}},
    {"the wait is for whoever is in front then",
     "screen:2 ru.app 0.19 de.app 1",
     {"0.29 " + switchTo("de"), "0.3 " + switchTo("de", "de", 2)}},
    {"with the focus kept for a while, the later one gives it back",
     "launch first.app own:timeWithFocus=0.1 1 | ru.app 0.05 de.app 1",
     {"0.1 suite SwitchTimes = 1; keep us; list ru; select ru; window in",
      "0.15 suite SwitchTimes = 2; keep ru; list de; select de; window in", "0.25 window out"}},
    {"two in quick succession",
     "ru.app 0.05 de.app 1",
     {"0.1 " + switchToRu, "0.15 " + switchTo("de", "ru", 2)}},
    {"the same one again", "launch first.app ru.app 1 =us | ru.app unhides:ru.app 1", {}},
    {"the same one after another",
     "launch first.app ru.app 1 other.app =us | ru.app 1",
     {"0.1 " + switchTo("ru", "us", 2)}},
    {"one that is shown again", "launch first.app runs:ru.app 1 | unhides:ru.app 1", {"0.1 " + switchToRu}},
    {"the same one after nobody",
     "launch ru.app 1 =us quits:ru.app | ru.app 1",
     {"0.1 " + switchTo("ru", "us", 2)}},
    {"without an identifier, each time",
     "launch first.app 1 own:defaultInput=de | nameless 1 =us nameless 1",
     {"0.1 " + switchTo("de"), "1.1 " + switchTo("de", "us", 2)}},
    {"its source is not there",
     "launch own:defaultInput=gone 1 | other.app 1",
     {"0.3 suite SwitchTimes = 1; keep us; list gone; window in; window out"}},
    {"two sources of one id", "another:ru ru.app 1", {"0.1 " + switchToRu}},
    {"the companion is asked at once",
     "companion ru.app 1",
     {"0 " + askForRu + "; post AskTandrelSwitchInput"}},
    {"but not for what is current", "companion =ru ru.app 1", {}},
    {"and after the wait for the screen",
     "companion screen:2 ru.app 1",
     {"0.2 " + askForRu + "; post AskTandrelSwitchInput"}},
    {"it has quit", "companion companion-quits ru.app 1", {"0.1 " + switchToRu}},
    {"it is asked once it can read what for",
     "companion writable:false de.app 0.5 ru.app 0.5 writable:true",
     {"0 suite AskTandrelSwitchInput = 'de'", "0.5 " + askForRu, "1 post AskTandrelSwitchInput"}},
    {"unless nobody wants that any more",
     "companion writable:false ru.app first.app writable:true 1",
     {"0 " + askForRu}},
};

INSTANTIATE_TEST_SUITE_P(Activations, Stories, testing::ValuesIn(activations));

TEST_F(ProgramTest, TheFocusComesBackAtOnceOrWhenTheSettingSays) {
    const Lines atOnce{"0 window in; window out"};
    const std::pair<PropertyList, Lines> settings[] = {{{}, atOnce},
                                                       {0, atOnce},
                                                       {-1, atOnce},
                                                       {"x", atOnce},
                                                       {std::nan(""), atOnce},
                                                       {0.05, {"0 window in", "0.05 window out"}},
                                                       {"0.2", {"0 window in", "0.2 window out"}},
                                                       {1e300, {"0 window in", "1 window out"}}};
    play("launch |");
    for (const auto& [setting, lines] : settings) {
        standard_.setObject(setting, key::timeWithFocus);
        desktop_.journal.take();
        program_->reset();
        desktop_.runLoop.advance(2);
        EXPECT_EQ(desktop_.journal.take(), lines);
    }
}

TEST_F(ProgramTest, ADesktopThatSwitchesAheadHasTheRulesWheneverTheProgramWouldSwitch) {
    auto& desktop = desktop_.desktop;
    desktop.switchingAhead = &desktop_.switchingAhead;
    desktop.facts.switchDelay = desktop.facts.screenChangeDelay = 0;
    const std::string launchers = "com.apple.Spotlight de, com.runningwithcrayons.Alfred-5 ru, ";
    const auto ahead = "ahead " + launchers + "de.app de, ru.app ru, others ";
    const auto none = std::string("ahead others as they are");
    const Story cases[] = {
        {"from the start", "launch", {"0 " + ahead + "as they are"}},
        {"told of first, it finds the source as it was", "| ru.app =ru 1", {"0 " + switchTo("ru")}},
        {"the default source", "| own:defaultInput=us", {"0 own defaultInput = 'us'; " + ahead + "us"}},
        {"a pause", "| pause", {"0 " + none}},
        {"and its end", "| resume", {"0 " + ahead + "us"}},
        {"the companion", "| companion", {"0 " + none}},
        {"its end is noticed with the next decision",
         "| companion-quits de.app",
         {"0 " + ahead + "us; " + switchTo("de", "ru", 2)}},
    };
    for (const auto& each : cases) {
        auto lines = play(each.happens);
        const auto& last = lines.back(); // A start does more.
        if (each.happens == "launch") lines = {"0 " + last.substr(last.rfind("ahead"))};
        EXPECT_EQ(lines, each.follows) << each.what;
    }
    // Rules that somebody else has written, who tells nobody.
    setRule("other.app", "de");
    EXPECT_THAT(play("| ru.app"),
                testing::Contains(testing::HasSubstr("other.app de, ru.app ru, others us")));
}

TEST_F(ProgramTest, ADesktopWithoutWaitsIsSwitchedBeforeAnythingElseHappens) {
    desktop_.desktop.facts.switchDelay = desktop_.desktop.facts.screenChangeDelay = 0;
    EXPECT_EQ(play("launch | ru.app"), Lines{"0 " + switchToRu});
    EXPECT_EQ(play("| screen:2 de.app 1"), Lines{"0 " + switchTo("de", "ru", 2)});
}

} // namespace
} // namespace quorvane
