#include <gtest/gtest.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

/// A desktop that tells of launchers, and where an input source is taken at once.
class ToldLaunchers : public ProgramTest, public testing::WithParamInterface<Story> {
protected:
    ToldLaunchers() {
        auto& facts = desktop_.desktop.facts;
        facts.switchDelay = facts.screenChangeDelay = 0;
        facts.launchers = {
            .areTold = true, .identifiers = {"rofi", "dmenu"}, .identifierPrefixes = {}, .formerPrefix = {}};
        setRule("rofi", "ru");
        setRule("dmenu", "de");
        standard_.setObject(
            PropertyList::Dictionary{
                {"ru", PropertyList::Dictionary{{"keyCode", 1}, {"modifierFlags", 0x100000}}}},
            key::shortcutOfInput);
    }
};

TEST_P(ToldLaunchers, Follow) {
    const std::string before = "launch own:defaultInput=us first.app | ";
    const bool hasPast = GetParam().happens.find('|') != std::string::npos;
    EXPECT_EQ(play((hasPast ? "" : before) + GetParam().happens), GetParam().follows) << GetParam().what;
}

const std::string toRofi = switchLauncherTo("ru"), back = switchTo("us", "ru", 2);

const Story told[] = {
    {"opened and closed", "told:rofi 1 told-none 1", {"0 " + toRofi, "1 " + back}},
    {"by a double press, with the key held on",
     "0x100108 0x100 0.1 0x100108 told:rofi 0.3 0x100 0.3 told-none 1",
     {"0.1 " + toRofi, "0.7 " + back}},
    {"what the user selects in the launcher stays, whatever is told of its window",
     "told:rofi =de 0.3 0x100 0x40101 told:rofi told-none",
     {"0 " + toRofi, "0.3 " + switchTo("us", "de", 2)}},
    {"another one takes its place",
     "told:rofi told:dmenu told-none",
     {"0 " + toRofi + "; " + switchLauncherTo("de", "ru", 2) + "; " + switchTo("us", "de", 3)}},
    {"an activation ends it, and what is selected after that stays",
     "told:rofi de.app =us told-none 1",
     {"0 " + toRofi + "; " + switchTo("de", "ru", 2)}},
    {"the same one again after an activation",
     "told:rofi de.app told:rofi",
     {"0 " + toRofi + "; " + switchTo("de", "ru", 2) + "; " + switchLauncherTo("ru", "de", 3)}},
    {"closed, and closed again",
     "told-none told:rofi told-none =de told-none",
     {"0 " + toRofi + "; " + back}},
    {"before any activation",
     "ru.app =us launch | told:rofi =us told-none",
     {"0 " + toRofi + "; " + switchTo("ru", "us", 2)}},
    {"a hot key does nothing in a launcher",
     "told:rofi =us press:1 told-none press:1",
     {"0 " + toRofi + "; " + switchTo("ru", "us", 2)}},
    {"the companion switches",
     "companion told:rofi =ru told-none",
     {"0 suite AskTandrelSwitchInput = 'ru'; post AskTandrelSwitchInput; suite AskTandrelSwitchInput = 'us'; "
      "post AskTandrelSwitchInput"}},
    {"an activation that ends it looks for no window",
     "launch own:followWindow=true own:enableTipOfState=true told:rofi 1 | de.app",
     {"0 " + switchTo("de", "ru", 2)}},
    {"the indicator goes there and back at once, and the mouse is watched only while it follows",
     "launch front.app | own:followWindow=true own:enableTipOfState=true mouse told:rofi mouse told-none "
     "window-moves:50 companion window-moves:50 own:followWindow=false mouse",
     {"0 own followWindow = true; own enableTipOfState = true; icon shown; box shown; icon 18x18; monitor 4; "
      "observe front window; look; indicator at 1078,828; " +
      toRofi +
      "; indicator at 978,678; look; indicator at 1078,828; look; indicator at 1128,828; own followWindow = "
      "false; end monitor 4; end front window"}},
};
INSTANTIATE_TEST_SUITE_P(Launchers, ToldLaunchers, testing::ValuesIn(told));

} // namespace
} // namespace quorvane
