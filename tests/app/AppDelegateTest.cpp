#include <gmock/gmock.h>

#include "settings/DefaultInput.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dictionary = PropertyList::Dictionary;

class Program : public ProgramTest {
protected:
    Program() {
        for (const auto* id : {"us", "ru"}) {
            desktop_.inputSources.enable({.id = id, .hasIconReference = true});
            desktop_.inputSources.icons[id] = SimulatedImage::ofColor({32, 32}, 0, 0, 0);
        }
    }
};

TEST_F(Program, OnlyOkOnTheReminderCounts) {
    const std::pair<bool, bool> answers[] = {{true, true}, {true, false}, {false, true}, {false, false}};
    for (const auto& [ok, ticked] : answers) {
        SimulatedDesktop desktop;
        desktop.alerts.answer = {alertFirstButtonReturn + (ok ? 0 : 1), ticked};
        for (int launch = 0; launch < 2; ++launch)
            AppDelegate(desktop.desktop).applicationDidFinishLaunching();
        EXPECT_EQ(desktop.alerts.shown.size(), ok && ticked ? 1U : 2U);
        EXPECT_EQ(desktop.defaults.synchronizations(""), ok && ticked ? 1 : 0);
        EXPECT_THAT(desktop.processes.commands,
                    testing::Each("open /System/Library/PreferencePanes/Accounts.prefPane"));
        EXPECT_EQ(desktop.processes.commands.empty(), !ok);
        const auto& alert = desktop.alerts.shown.front();
        EXPECT_EQ(alert.messageText, "Warm Reminder");
        EXPECT_THAT(alert.buttons, ElementsAre("OK", "Cancel"));
        EXPECT_EQ(alert.suppressionButtonTitle, "Don't remind me next time");
        EXPECT_THAT(alert.informativeText,
                    testing::HasSubstr("\"System Preferences>Users and Groups>Login Items\""));
    }
}

TEST_F(Program, TheStatusItemIsMadeWhenFirstSeenAndThenOnlyHidden) {
    standard_.setBool(true, key::hiddenIconInStatusBar);
    launch();
    EXPECT_THAT(desktop_.statusBar.items, IsEmpty());
    standard_.setBool(false, key::hiddenIconInStatusBar);
    ASSERT_EQ(desktop_.statusBar.items.size(), 1U);
    const auto item = desktop_.statusBar.items.front();
    EXPECT_TRUE(item->isVisible);
    EXPECT_TRUE(item->highlights);
    EXPECT_EQ(item->image, desktop_.images.byName["menuBarIcon"]);
    for (const bool isHidden : {true, false}) {
        standard_.setBool(isHidden, key::hiddenIconInStatusBar);
        EXPECT_EQ(item->isVisible, !isHidden);
    }
    EXPECT_EQ(desktop_.statusBar.items.size(), 1U);

    ASSERT_EQ(item->menu.size(), 2U);
    item->menu[1].action();
    EXPECT_TRUE(desktop_.application.isTerminated);
}

TEST_F(Program, TheToolTipSaysProgramSourceAndWhy) {
    desktop_.inputSources.names["ru"] = "Russian";
    desktop_.applicationBundles.paths["org.kde.kate"] = "/Kate";
    setRule("org.kde.kate", "ru");
    setRule("com.apple.Spotlight", "us");
    launch();
    EXPECT_EQ(desktop_.statusBar.items.front()->toolTip, "us") << "nobody was in front yet";
    const struct {
        const char* application;
        const char* toolTip;
    } cases[] = {{"org.kde.kate", "Kate: Russian (rule)"},
                 {"other.app", "other.app: Russian"},
                 {"com.apple.Spotlight", "com.apple.Spotlight: us (launcher's rule)"}};
    for (const auto& expected : cases) {
        desktop_.workspace.activate(expected.application);
        desktop_.runLoop.advance(1);
        EXPECT_EQ(desktop_.statusBar.items.front()->toolTip, expected.toolTip);
    }
    setDefaultInput(standard_, "us");
    desktop_.workspace.activate("other.app");
    EXPECT_EQ(desktop_.statusBar.items.front()->toolTip, "other.app: us (default source)");
}

TEST_F(Program, TheIndicatorStandsAtTheMainScreensCornerWhenItIsWanted) {
    auto& interface = desktop_.interfaceFiles;
    const struct {
        bool enabled;
        std::optional<Screen> screen;
        Point origin;
    } cases[] = {
        {true, Screen{1, {1440, 100, 1920, 1080}, 24}, {3340, 1160}},
        {true, std::nullopt, {-20, -20}},
        {false, Screen{1, {0, 0, 1440, 900}, 24}, {7, 7}},
    };
    for (const auto& expected : cases) {
        standard_.setBool(expected.enabled, key::enableTipOfState);
        desktop_.screens.main = expected.screen;
        interface.inputIconWindow.origin = {7, 7};
        launch();
        EXPECT_EQ(interface.inputIconWindow.origin, expected.origin);
        EXPECT_EQ(interface.iconView.isHidden, !expected.enabled);
        EXPECT_EQ(interface.iconBox.isHidden, !expected.enabled);
        EXPECT_THAT(interface.inputIconWindow.orders, IsEmpty());
        program_.reset();
    }
    EXPECT_EQ(interface.inputIconWindow.style, (WindowStyle{0, false, true, 1, 1000, true}));
}

TEST_F(Program, TheIndicatorFollowsItsSettingAndOnceTheLastOfABurstOfInputSources) {
    launch();
    auto& view = desktop_.interfaceFiles.iconView;
    EXPECT_TRUE(view.isHidden);
    standard_.setBool(true, key::enableTipOfState);
    EXPECT_FALSE(view.isHidden);
    const auto refreshesWithin = [&](double seconds) {
        view.image = nullptr;
        desktop_.runLoop.advance(seconds);
        return view.image != nullptr;
    };
    desktop_.inputSources.selectFromOutside("ru");
    EXPECT_FALSE(refreshesWithin(0.1));
    desktop_.inputSources.selectFromOutside("us");
    EXPECT_FALSE(refreshesWithin(0.15));
    EXPECT_TRUE(refreshesWithin(0.05));
    desktop_.distributedNotifications.postFromOutside({"something else", {}});
    EXPECT_FALSE(refreshesWithin(10));
    desktop_.inputSources.selectFromOutside("ru");
    EXPECT_TRUE(refreshesWithin(10));
}

TEST_F(Program, SettingsTheCompanionNeedsAreMirroredWhenTheyChange) {
    const PropertyList rules = Dictionary{{"an.app", Dictionary{{"id", "ru"}}}};
    standard_.setObject(rules, key::autoInput);
    launch();
    const auto shared = openSharedDefaults(desktop_.defaults);
    EXPECT_TRUE(shared->objectForKey(key::autoInput).isNothing()) << "not at start-up";
    standard_.setObject(rules, key::autoInput);
    standard_.setObject(1, key::enableForceEnglishBrowserAddress);
    EXPECT_EQ(shared->objectForKey(key::autoInput), rules);
    EXPECT_EQ(shared->objectForKey(key::enableForceEnglishBrowserAddress), PropertyList(true));
    standard_.removeObjectForKey(key::autoInput);
    EXPECT_TRUE(shared->objectForKey(key::autoInput).isNothing());
    EXPECT_EQ(desktop_.defaults.synchronizations(maker::sharedSuiteName), 3);
}

TEST_F(Program, TheMirrorCopiesTheOwnDomainOnlyAlsoOnceTheSharedSuiteIsReadThroughTheStandardDefaults) {
    launch();
    standard_.addSuiteNamed(maker::sharedSuiteName); // as the preferences do when they open
    const auto shared = openSharedDefaults(desktop_.defaults);
    standard_.setObject(Dictionary{{"an.app", Dictionary{{"id", "ru"}}}}, key::autoInput);
    standard_.removeObjectForKey(key::autoInput);
    EXPECT_TRUE(shared->objectForKey(key::autoInput).isNothing());
    standard_.setBool(true, key::enableForceEnglishBrowserAddress);
    standard_.removeObjectForKey(key::enableForceEnglishBrowserAddress);
    EXPECT_EQ(shared->objectForKey(key::enableForceEnglishBrowserAddress), PropertyList(false));
    desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::enableForceEnglishBrowserAddress, true);
    EXPECT_EQ(shared->objectForKey(key::enableForceEnglishBrowserAddress), PropertyList(true))
        << "another program's write is its own";
    EXPECT_EQ(desktop_.defaults.synchronizations(maker::sharedSuiteName), 4);
}

TEST_F(Program, AnUnhideSwitchesTheInputSource) {
    launch();
    setRule("other.app", "ru");
    desktop_.workspace.launch("other.app");
    desktop_.workspace.unhide("other.app");
    desktop_.runLoop.advance(0.3);
    EXPECT_EQ(desktop_.inputSources.currentID(), "ru");
}

TEST_F(Program, TheLoginItemIsSetAtLaunchAndAtEachWriteOfTheSetting) {
    launch();
    standard_.setBool(true, key::autoStartAtLogin);
    desktop_.loginItems.refuses = true;
    standard_.setBool(true, key::autoStartAtLogin);
    standard_.setBool(false, key::autoStartAtLogin);
    const std::string item(maker::loginItemIdentifier);
    EXPECT_THAT(desktop_.loginItems.calls, ElementsAre(std::pair(item, false), std::pair(item, true),
                                                       std::pair(item, true), std::pair(item, false)));
    EXPECT_THAT(desktop_.log.lines, ElementsAre("Call LoginItemSetEnabled with [0] success",
                                                "Call LoginItemSetEnabled with [1] success",
                                                "Call LoginItemSetEnabled with [1] failed",
                                                "Call LoginItemSetEnabled with [0] failed"));
    EXPECT_TRUE(standard_.objectForKey(key::autoStartAtLogin) == PropertyList(false)) << "left as it is";

    LaunchAtLoginController controller(desktop_.loginItems, standard_, desktop_.log);
    controller.initWithIdentifier("first").initWithIdentifier("second").setLaunchAtLogin(true);
    EXPECT_EQ(desktop_.loginItems.calls.back(), std::pair(std::string("first"), true));
}

TEST_F(Program, ThePreferencesOpenAMomentAfterTheyWereAskedFor) {
    launch();
    EXPECT_TRUE(program_->applicationShouldHandleReopen(false));
    EXPECT_THAT(desktop_.interfaceFiles.loadedPreferences, IsEmpty());
    desktop_.runLoop.advance(0.01);
    program_->openPreferences();
    desktop_.runLoop.advance(0.01);
    ASSERT_EQ(desktop_.interfaceFiles.loadedPreferences.size(), 1U) << "one for the life of the process";
    EXPECT_THAT(desktop_.interfaceFiles.loadedPreferences.front()->window.orders,
                ElementsAre("front", "front"));
    EXPECT_EQ(desktop_.application.activations, 2);
}

TEST_F(Program, ClosingThePreferencesRelaunchesOnlyWhileTheStatusItemIsHidden) {
    using Commands = std::vector<std::string>;
    const struct {
        bool hidden;
        const char* title;
        Commands commands;
    } cases[] = {{true, "Quorvane", {"/usr/bin/open -n /Applications/Quorvane.app"}},
                 {false, "Quorvane", {}},
                 {true, "Einstellungen", {}}};
    for (const auto& expected : cases) {
        SimulatedDesktop desktop;
        desktop.interfaceFiles.preferencesTitle = expected.title;
        desktop.defaults.standardUserDefaults().setBool(true, key::notNeedRemindForAutoStartAtLogin);
        AppDelegate program(desktop.desktop);
        program.applicationDidFinishLaunching();
        desktop.defaults.standardUserDefaults().setBool(expected.hidden, key::hiddenIconInStatusBar);
        program.openPreferences();
        desktop.runLoop.advance(0.01);
        desktop.interfaceFiles.loadedPreferences.front()->window.close();
        EXPECT_EQ(desktop.processes.commands, expected.commands);
        EXPECT_EQ(desktop.processes.exitStatuses, std::vector<int>(expected.commands.size(), 0));
    }
}

TEST_F(Program, TheDelegateIsReachableAsLongAsItLives) {
    EXPECT_EQ(AppDelegate::appDelegate(), nullptr);
    launch();
    EXPECT_EQ(AppDelegate::appDelegate(), &*program_);
    program_.reset();
    EXPECT_EQ(AppDelegate::appDelegate(), nullptr);
}

} // namespace
} // namespace quorvane
