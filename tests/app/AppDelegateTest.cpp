#include <functional>

#include <gtest/gtest.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

const std::string loginItem = "login item " + std::string(maker::loginItemIdentifier);
const std::string setLoginItem = loginItem + " off; log Call LoginItemSetEnabled with [0] success";
const std::string observers =
    "observe own hiddenIconInStatusBar; observe own enableTipOfState; observe own autoInput; observe own "
    "enableForceEnglishBrowserAddress; observe activations; observe unhides; observe leaves; observe "
    "com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged; observe AXWindowAdjusted";
const std::string indicatorStyle =
    "indicator style 0 clear; indicator behavior 1; indicator level 1000; indicator movable";
const std::string statusItem =
    "status item of length -1; load menuBarIcon; status item image 18; status item menu *Preferences…; "
    "status "
    "item menu *Quit Quorvane; status item highlights 1; status item says us; status item shown";

const Story shellStories[] = {
    {"start-up, with everything shown",
     "own:hiddenIconInStatusBar= own:enableTipOfState=true own:shortcutOfInput=none | launch",
     {"0 " + setLoginItem + "; observe own autoStartAtLogin; " + indicatorStyle +
      "; icon 18x18; indicator at 1420,880; " + statusItem + "; " + observers + "; monitor 4100"}},
    {"start-up, with nothing shown",
     "| launch",
     {"0 " + setLoginItem + "; observe own autoStartAtLogin; " + indicatorStyle +
      "; icon hidden; box hidden; " + observers + "; monitor 4100"}},
    {"the status item is made when it is first seen, and then only hidden",
     "launch | own:hiddenIconInStatusBar=false own:hiddenIconInStatusBar=true "
     "own:hiddenIconInStatusBar=false",
     {"0 own hiddenIconInStatusBar = false; " + statusItem +
      "; own hiddenIconInStatusBar = true; status item hidden; own hiddenIconInStatusBar = false; status "
      "item "
      "shown"}},
    {"the login item follows each write of its setting",
     "launch | own:autoStartAtLogin=true 1 own:autoStartAtLogin=true 1 own:autoStartAtLogin=",
     {"0 own autoStartAtLogin = true; " + loginItem + " on; log Call LoginItemSetEnabled with [1] success",
      "1 own autoStartAtLogin = true; " + loginItem + " on; log Call LoginItemSetEnabled with [1] success",
      "2 own autoStartAtLogin = none; " + setLoginItem}},
    {"the mirror copies each write of the own value",
     "launch | own:autoInput=text 1 own:enableForceEnglishBrowserAddress=1 1 own:autoInput= 1 "
     "own:enableForceEnglishBrowserAddress=",
     {"0 own autoInput = 'text'; suite autoInput = 'text'; synchronize suite",
      "1 own enableForceEnglishBrowserAddress = 1; suite enableForceEnglishBrowserAddress = true; "
      "synchronize "
      "suite",
      "2 own autoInput = none; suite autoInput = none; synchronize suite",
      "3 own enableForceEnglishBrowserAddress = none; suite enableForceEnglishBrowserAddress = false; "
      "synchronize suite"}},
    {"also once the shared suite is read through the standard defaults, and nothing that others write there",
     "launch preferences 1 | own:autoInput=text own:autoInput= 1 "
     "writes:enableForceEnglishBrowserAddress=true",
     {"0 own autoInput = 'text'; suite autoInput = 'text'; synchronize suite; own autoInput = none; suite "
      "autoInput = none; synchronize suite",
      "1 browser on"}},
    {"other settings are nobody's",
     "launch | own:orderOfAppsRule=1 own:followWindow=true",
     {"0 own orderOfAppsRule = 1; own followWindow = true"}},
    {"the preferences open a moment after they were asked for, in front of all",
     "launch preferences 1 | preferences 0.009 0.001 reopen 1",
     {"0.01 preferences in; activate", "0.02 preferences in; activate"}},
};
INSTANTIATE_TEST_SUITE_P(Shell, Stories, testing::ValuesIn(shellStories));

TEST_F(ProgramTest, OnlyOkOnTheReminderCounts) {
    const std::string question =
        "0 alert *Warm Reminder; *If you don't want Quorvane preference window to appear when the computer "
        "is "
        "turned on, please remove it from \"System Preferences>Users and Groups>Login Items\". This "
        "operation "
        "does not affect auto start at login.; button *OK; button *Cancel; box *Don't remind me next time";
    const std::string opens = "; system open /System/Library/PreferencePanes/Accounts.prefPane";
    const struct {
        AlertAnswer answer;
        std::string follows;
    } cases[] = {
        {{alertFirstButtonReturn, true},
         question + "; own NotNeedRemindForAutoStartAtLogin = true; synchronize own" + opens},
        {{alertFirstButtonReturn, false}, question + opens},
        {{alertFirstButtonReturn + 1, true}, question},
        {{alertFirstButtonReturn + 1, false}, question},
    };
    for (const auto& [answer, follows] : cases) {
        standard_.removeObjectForKey(key::notNeedRemindForAutoStartAtLogin);
        desktop_.alerts.answer = answer;
        program_.reset();
        const auto lines = play("| launch");
        EXPECT_EQ(lines.front().substr(0, lines.front().find("; " + loginItem)), follows);
    }
}

TEST_F(ProgramTest, TheMenuOpensThePreferencesAndQuits) {
    play("own:hiddenIconInStatusBar= launch preferences 1 |");
    for (const auto& item : desktop_.statusBar.menu)
        item.action();
    EXPECT_EQ(play("| 1"), Lines{"0.01 preferences in; activate"});
}

TEST_F(ProgramTest, ARefusedLoginItemIsOnlyLogged) {
    desktop_.loginItems.refuses = true;
    LaunchAtLoginController controller(desktop_.loginItems, standard_, desktop_.log);
    desktop_.journal.take();
    controller.initWithIdentifier("").initWithIdentifier("second").setLaunchAtLogin(true);
    EXPECT_EQ(desktop_.journal.take(),
              Lines{"0 login item  off; log Call LoginItemSetEnabled with [0] failed; observe own "
                    "autoStartAtLogin; login item  on; log Call LoginItemSetEnabled with [1] failed"})
        << "the first identifier counts, even an empty one";
}

TEST_F(ProgramTest, TheToolTipSaysProgramSourceAndWhy) {
    standard_.setBool(false, key::hiddenIconInStatusBar);
    desktop_.inputSources.names["ru"] = "Russian";
    desktop_.applicationBundles.paths["ru.app"] = "/Kate";
    play("ignore:look launch |");
    const std::pair<std::string, Lines> cases[] = {
        {"ru.app 1",
         {"0.2 status item says Kate: us", "0.3 " + switchTo("ru"),
          "0.5 status item says Kate: Russian (*rule)"}},
        {"other.app 1", {"0 status item says other.app: Russian"}},
        {"front:com.apple.Spotlight 1",
         {"0 " + switchLauncherTo("de", "ru", 2) +
              "; status item says com.apple.Spotlight: de (*launcher's rule)",
          "0.2 status item says com.apple.Spotlight: de (*launcher's rule)"}},
        {"own:defaultInput=de other.app 1",
         {"0 own defaultInput = 'de'; status item says other.app: de (*default source)"}},
        {"pause ru.app 1",
         {"0 status item says other.app: de (*paused); status item says Kate: de (*paused)"}},
        {"resume 1",
         {"0 status item says Kate: de; status item says Kate: de", "0.1 " + switchTo("ru", "de", 3),
          "0.3 status item says Kate: Russian (*rule)"}},
    };
    for (const auto& [story, lines] : cases)
        EXPECT_EQ(play("| " + story), lines);
}

TEST_F(ProgramTest, ARelaunchGoesOnPausing) {
    desktop_.desktop.facts.pausedArgument = "--until=";
    const auto argument = [&](const std::string& story) {
        play(story);
        EXPECT_THROW(program_->restart(), SimulatedExit);
        const auto line = desktop_.journal.take().front();
        return line.substr(line.find(".app") + 4);
    };
    launch();
    EXPECT_EQ(argument("| pause:50"), " --until=1700000050; exit 0");
    EXPECT_EQ(argument("| pause"), " --until=0; exit 0");
    EXPECT_EQ(argument("| resume"), "; exit 0");
    auto& pause = program_->controlled().pause;
    pause.pauseUntil(1'699'999'999);
    EXPECT_FALSE(pause.isOn()) << "it has ended meanwhile";
    pause.pauseUntil(1'700'000'050);
    EXPECT_TRUE(pause.isOn() && pause.end() == 1'700'000'050);
    pause.pauseUntil(0);
    EXPECT_TRUE(pause.isOn() && !pause.end());
}

TEST_F(ProgramTest, ClosingThePreferencesRelaunchesOnlyWhileTheStatusItemIsHidden) {
    const std::string stops =
        "set up off; preferences level 0; preferences behavior 0; set up '*Start Setup'; post "
        "StopSetUpSwitchInputByLocation";
    const std::string relaunches = "launch /usr/bin/open -n /Applications/Quorvane.app; exit 0";
    const struct {
        const char* what;
        bool hidden;
        const char *title, *localizedTitle;
        bool exits;
        Lines follows;
    } cases[] = {
        {"hidden", true, "Quorvane", "Quorvane", true, {"0 " + stops + "; " + relaunches}},
        {"shown", false, "Quorvane", "Quorvane", false, {"0 " + stops}},
        {"translated", true, "Einstellungen", "Einstellungen", false, {"0 " + stops}},
        {"another window", true, "Other", "Quorvane", false, {}},
    };
    for (const auto& [what, hidden, title, localizedTitle, exits, follows] : cases) {
        desktop_.interfaceFiles.preferencesTitle = title;
        desktop_.application.name = localizedTitle;
        standard_.setBool(hidden, key::hiddenIconInStatusBar);
        play("launch preferences 1 |");
        bool hasExited = false;
        try {
            desktop_.interfaceFiles.loadedPreferences.back()->window.close();
        } catch (const SimulatedExit&) {
            hasExited = true;
        }
        EXPECT_EQ(hasExited, exits) << what;
        EXPECT_EQ(desktop_.journal.take(), follows) << what;
    }
}

TEST_F(ProgramTest, TheDelegateIsReachableAsLongAsItLives) {
    EXPECT_EQ(AppDelegate::appDelegate(), nullptr);
    launch();
    EXPECT_EQ(AppDelegate::appDelegate(), &*program_);
    program_.reset();
    EXPECT_EQ(AppDelegate::appDelegate(), nullptr);
}

} // namespace
} // namespace quorvane
