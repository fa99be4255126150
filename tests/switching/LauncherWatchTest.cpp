#include <gtest/gtest.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

// Command is 0x100108, control 0x40101, nothing held 0x100. us is the source of everything without a rule.
const std::string before = "ignore:look launch own:defaultInput=us first.app 1 | ";
const std::string beforeWithAlfred = "ignore:look launch own:defaultInput=us alfred-runs first.app 1 | ";

const std::string spotlightOpened = switchLauncherTo("de"), alfredOpened = switchLauncherTo("ru");
const std::string spotlightClosed = switchTo("us", "de", 2), alfredClosed = switchTo("us", "ru", 2);

const Story episodes[] = {
    {"a modifier and no launcher", beforeWithAlfred + "0x100108 0.5 0x100 1", {}},
    {"opened while the key is held", before + "0x100108 spotlight 0.15 0x100 1", {"0.1 " + spotlightOpened}},
    {"and closed: seen at the next fifth of a second, counted from the key",
     before + "0x100108 spotlight 0.1 0x100 1 closes 1",
     {"0.1 " + spotlightOpened, "1.4 " + spotlightClosed}},
    {"opened just after the release", before + "0x100108 0.05 0x100 spotlight 1", {"0.1 " + spotlightOpened}},
    {"opened too late", before + "0x100108 0x100 0.11 spotlight 1", {}},
    {"closed, but no modifier moved since",
     before + "0x100108 0.05 0x100 spotlight 1 closes 1",
     {"0.1 " + spotlightOpened}},
    {"by its Chinese name", before + "聚焦 0x100108 0.1", {"0.1 " + spotlightOpened}},
    {"only its item in the menu bar", before + "narrow-spotlight 0x100108 0.3 0x100 1", {}},
    {"there, but not on the screen", before + "hidden-spotlight 0x100108 0.3 0x100 1", {}},
    {"Alfred",
     beforeWithAlfred + "0x100108 alfred 0.1 0x100 1 closes 1",
     {"0.1 " + alfredOpened, "1.4 " + alfredClosed}},
    {"Alfred's window on another layer", beforeWithAlfred + "alfred-on-25 0x100108 0.3 0x100 1", {}},
    {"there, but not on the screen", beforeWithAlfred + "hidden-alfred 0x100108 0.3 0x100 1", {}},
    {"somebody else's window", beforeWithAlfred + "no-alfred 0x100108 0.3 0x100 1", {}},
    {"a window like Alfred's, but Alfred does not run", before + "alfred 0x100108 0.3 0x100 1", {}},
    {"Caps Lock is on at the release", before + "0x110108 0x10100 0.11 spotlight 1", {}},
    {"the function key's flag remains",
     before + "0x100108 0x800100 0.3 spotlight 1",
     {"0.4 " + spotlightOpened}},
    {"and with Caps Lock", before + "0x100108 0x810100 0.3 spotlight 1", {"0.4 " + spotlightOpened}},
    {"these begin nothing", before + "0x800100 0x810100 0x10100 spotlight 1", {}},
    {"without the bit of a real keyboard, nothing held is a press",
     before + "0x0 spotlight 1",
     {"0.1 " + spotlightOpened}},
    {"double press: after a wait for the window, which is looked for at once",
     beforeWithAlfred + "0x100108 0x100 0.25 alfred 0x100108 1 closes 1",
     {"0.25 sleep 0.05", "0.3 " + alfredOpened, "1.6 " + switchTo("us", "ru", 2)}},
    {"double press, too slow", beforeWithAlfred + "0x100108 0x100 0.26 alfred 0x100108 0x100 0.09", {}},
    {"two different keys", beforeWithAlfred + "0x100108 0x100 0.2 alfred 0x40101 0x100 0.09", {}},
    {"double press without Alfred", before + "0x100108 0x100 0.2 alfred 0x100108 0x100 1", {}},
    {"double press while it is open",
     beforeWithAlfred + "0x100108 alfred 0.1 =us 0x100108 0.1",
     {"0.1 " + alfredOpened + "; sleep 0.05"}},
    {"an activation ends it",
     before + "0x100108 spotlight 0.1 0x100 ru.app closes 1",
     {"0.1 " + spotlightOpened, "0.2 " + switchTo("ru", "de", 2)}},
    {"but the window is waited for all the same, and its end decided once more",
     before + "0x100108 spotlight 0.1 0x100 ru.app 0.5 =us closes 1",
     {"0.1 " + spotlightOpened, "0.2 " + switchTo("ru", "de", 2), "0.8 " + switchTo("ru", "us", 3)}},
    {"and the next press begins another",
     before + "0x100108 spotlight 0.1 ru.app 0.3 0x100108 0.15",
     {"0.1 " + spotlightOpened, "0.2 " + switchTo("ru", "de", 2), "0.5 " + switchLauncherTo("de", "ru", 3)}},
    {"what the user selects in the launcher stays",
     beforeWithAlfred + "0x100108 alfred 0.1 =us 0x40101 0.3 0x100 1",
     {"0.1 " + alfredOpened}},
    {"the companion switches",
     "ignore:look launch own:defaultInput=us companion first.app 1 | "
     "0x100108 spotlight 0.1 =de 0x100 closes 1",
     {"0.1 suite AskTandrelSwitchInput = 'de'; post AskTandrelSwitchInput",
      "0.3 suite AskTandrelSwitchInput = 'us'; post AskTandrelSwitchInput"}},
    {"whoever is in front counts when nobody was activated",
     "ignore:look ru.app =us 1 alfred-runs launch | "
     "0x100108 0x100 alfred 0x100108 1 closes =us 1",
     {"0 sleep 0.05", "0.05 " + alfredOpened, "1.35 " + switchTo("ru", "us", 2)}},
    {"windows are looked for each tenth of a second while a key is held, then each fifth",
     "launch first.app 1 | "
     "0x100108 0.25 spotlight 0.1 0x100 0.41 closes 0.3",
     {"0.1 look", "0.2 look", "0.3 look; " + spotlightOpened, "0.55 look", "0.75 look", "0.95 look"}},
    {"both launchers' while Alfred runs, until shortly after the release",
     "alfred-runs launch first.app 1 | "
     "0x100108 0.15 0x100 1",
     {"0.1 look; look", "0.2 look; look"}},
    {"the indicator goes to the launcher a moment later, once, and back when it closes",
     "launch own:enableTipOfState=true own:followWindow=true front.app 1 | 0x100108 spotlight 0.1 "
     "0.15 mouse 0x100 closes 0.3",
     {"0.1 look; " + spotlightOpened, "0.2 indicator at 978,678", "0.3 box hidden; no icon",
      "0.45 look; look; indicator at 1078,828"}},
};
INSTANTIATE_TEST_SUITE_P(Launchers, Stories, testing::ValuesIn(episodes));

} // namespace
} // namespace quorvane
