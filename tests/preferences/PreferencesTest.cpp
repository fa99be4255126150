#include <gmock/gmock.h>

#include "preferences/RuleTableRows.h"
#include "settings/AppRule.h"
#include "settings/LocationRule.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

constexpr const char* ru = "Russian";
constexpr const char* us = "U.S.";

/// The preferences window, open, for the sources us, ru and de (which has no icon), and the applications a,
/// b and c.
class Preferences : public ProgramTest {
protected:
    Preferences() {
        for (const auto* id : {"us", "ru", "de"})
            desktop_.inputSources.enable({.id = id, .hasIconReference = true});
        desktop_.inputSources.names = {{"us", us}, {"ru", ru}, {"de", "German"}};
        desktop_.inputSources.icons = {
            {"us", SimulatedImage::ofColor({32, 32}, 0, 0, 0)},
            {"de",
             std::make_shared<SimulatedImage>(Size{2, 1}, PropertyList::Data{255, 0, 9, 0, 0, 255, 99, 0})}};
        for (const auto* id : {"a", "b", "c"}) {
            desktop_.workspace.launch(id);
            desktop_.applicationBundles.paths[id] = std::string("/apps/") + id;
            desktop_.applicationBundles.names[std::string("/apps/") + id] = std::string("Name of ") + id;
        }
        desktop_.applicationBundles.icons["/apps/a"] = SimulatedImage::ofColor({32, 32}, 1, 2, 3);
    }

    void open() {
        launch();
        program_->openPreferences();
        desktop_.runLoop.advance(0.01);
        window_ = desktop_.interfaceFiles.loadedPreferences.back();
    }
    PreferencesActions& actions() { return *window_->actions; }

    template <class Part>
    Part cell(const TableView& table, const char* column, int row) {
        const auto view = actions().viewForTableColumn(table, column, row);
        return std::get<Part>(view.parts.back());
    }
    PopUpButtonPart popUp(int row) {
        return cell<PopUpButtonPart>(window_->applications, "Select Input", row);
    }

    /// As a user does it: the menu opens, and an item is chosen.
    void choose(const PopUpButtonPart& menu, const char* title) {
        menu.willPopUp(menu.tag);
        menu.action(title);
    }

    std::vector<std::string> rows() {
        std::vector<std::string> names;
        for (int row = 0; row < actions().numberOfRowsInTableView(window_->applications); ++row)
            names.push_back(cell<TextFieldPart>(window_->applications, "Application Name", row).stringValue);
        for (auto& name : names)
            name = name.substr(std::min(name.size(), std::string("Name of ").size()));
        return names;
    }
    AppRule rule(const char* id) {
        return AppRule::ofApplication(standard_.objectForKey(key::autoInput), id);
    }

    SimulatedPreferences* window_ = nullptr;
};

TEST_F(Preferences, TheRowsAreRulesAndRunningApplicationsInTheUsersOrder) {
    desktop_.workspace.launch("agent", ActivationPolicy::accessory);
    desktop_.workspace.launch("com.runningwithcrayons.Alfred-5", ActivationPolicy::accessory);
    desktop_.workspace.launch(RunningApplication{.localizedName = "nameless"});
    desktop_.applicationBundles.paths["ruled"] = "/apps/ruled";
    setRuleInput(standard_, "ruled", "ru");
    setRuleInput(standard_, "not.installed", "ru");
    setRuleInput(standard_, "c", "ru");
    standard_.setObject(Array{"b", "c", "ruled", 7}, key::notDisplayAppName);
    const auto found = [&] {
        return buildArrOfApps(standard_, desktop_.workspace, desktop_.applicationBundles, {});
    };
    EXPECT_THAT(found(), ElementsAre("c", "ruled", "a", "com.runningwithcrayons.Alfred-5"));
    standard_.setObject(Array{"a", "gone", "ruled"}, key::orderOfAppsRule);
    EXPECT_THAT(found(), ElementsAre("a", "ruled", "c", "com.runningwithcrayons.Alfred-5"));
}

TEST_F(Preferences, ARowIsDroppedWhereTheSystemDropsIt) {
    const std::vector<std::string> order{"0", "1", "2", "3", "4"};
    EXPECT_THAT(reordered(order, 0, 3), ElementsAre("1", "2", "3", "0", "4")) << "one below the gap";
    EXPECT_THAT(reordered(order, 0, 5), ElementsAre("1", "2", "3", "4", "0"));
    EXPECT_THAT(reordered(order, 3, 1), ElementsAre("0", "3", "1", "2", "4"));
    for (const auto& [dragged, target] : {std::pair{-1, 2}, {5, 2}, {1, -1}, {1, 6}})
        EXPECT_EQ(reordered(order, dragged, target), order);

    open();
    EXPECT_TRUE(window_->applications.takesDraggedRows);
    window_->applications.selected = 1;
    EXPECT_TRUE(actions().acceptDrop(window_->applications, &window_->locations, 0, 3));
    EXPECT_TRUE(standard_.objectForKey(key::orderOfAppsRule).isNothing());
    EXPECT_TRUE(actions().acceptDrop(window_->applications, &window_->applications, 0, 3));
    EXPECT_THAT(rows(), ElementsAre("b", "c", "a"));
    EXPECT_EQ(standard_.objectForKey(key::orderOfAppsRule), (Array{"b", "c", "a"}));
    EXPECT_EQ(window_->applications.selected, noRow);
}

TEST_F(Preferences, ARowsMenuShowsAndSetsItsSource) {
    setRuleInput(standard_, "b", "ru");
    setRuleInput(standard_, "c", "gone");
    open();
    EXPECT_THAT(popUp(1).itemTitles, ElementsAre("-", us, ru, "German"));
    EXPECT_EQ(rows(), (std::vector<std::string>{"b", "c", "a"}));
    const char* const withoutDefault[] = {ru, "-", "-"};
    const char* const withDefault[] = {ru, us, us};
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(popUp(row).title, withoutDefault[row]);
    choose(popUp(2), ru);
    EXPECT_EQ(rule("a").id(), "ru");
    choose(popUp(0), "-");
    EXPECT_EQ(rule("b").id(), std::nullopt);
    EXPECT_TRUE(standard_.objectForKey(key::autoInput)["b"].dictionary()) << "an empty rule stays";

    window_->defaultInput.selected = 1;
    actions().defaultInputChanged();
    EXPECT_EQ(standard_.stringForKey(key::defaultInput), "us");
    EXPECT_THAT(popUp(1).itemTitles, ElementsAre(us, ru, "German")) << "\"-\" is the default's now";
    EXPECT_EQ(popUp(1).title, withDefault[1]);
    EXPECT_EQ(popUp(2).title, ru);
    popUp(1).willPopUp(1);
    popUp(2).action("German"); // the row is that of the menu that opened last
    EXPECT_EQ(rule("c").id(), "de");
    window_->defaultInput.selected = 0;
    actions().defaultInputChanged();
    EXPECT_TRUE(standard_.objectForKey(key::defaultInput).isNothing());
}

TEST_F(Preferences, EnglishSymbolsNeedTheCompanion) {
    open();
    const auto box = [&] { return cell<CheckBoxPart>(window_->applications, "Force English Symbols", 0); };
    for (const bool downloads : {false, true}) {
        desktop_.alerts.answer.response = alertFirstButtonReturn + (downloads ? 0 : 1);
        box().action(0, stateOn);
        EXPECT_EQ(box().state, stateOff);
        EXPECT_EQ(desktop_.links.opened.size(), downloads ? 1U : 0U);
    }
    EXPECT_THAT(desktop_.alerts.shown.back().messageText,
                testing::StartsWith("\nThis function requires Tandrel"));
    launchCompanion();
    box().action(0, stateOn);
    EXPECT_EQ(box().state, stateOn);
    EXPECT_TRUE(rule("a").forceEnglishSymbols());
}

TEST_F(Preferences, ApplicationsAreAddedRemovedAndNoticed) {
    open();
    auto& remove = window_->removeApplication;
    EXPECT_FALSE(remove.isEnabled);
    window_->applications.selected = 1;
    actions().mouseDownByApplication();
    EXPECT_TRUE(remove.isEnabled);
    actions().RemoveApplication();
    EXPECT_THAT(rows(), ElementsAre("a", "c"));
    EXPECT_EQ(window_->applications.selected, 1) << "the row that took its place";
    actions().RemoveApplication();
    EXPECT_FALSE(remove.isEnabled);
    window_->applications.selected = noRow;
    actions().RemoveApplication();
    desktop_.workspace.launch("b"); // removed: not shown again because it runs
    desktop_.workspace.launch("late", ActivationPolicy::accessory);
    desktop_.workspace.launch(RunningApplication{.localizedName = "nameless"});
    EXPECT_THAT(rows(), ElementsAre("a", "")) << "one that is not installed has no name";
    for (const std::optional<std::string> chosen : {"b", "a", "b"}) {
        actions().AddApplication();
        desktop_.openPanel.choose(chosen);
    }
    actions().AddApplication();
    desktop_.openPanel.choose(std::nullopt);
    EXPECT_THAT(rows(), ElementsAre("a", "", "b"));
    EXPECT_EQ(standard_.objectForKey(key::notDisplayAppName), (Array{"c"}));
}

TEST_F(Preferences, LocationsAreShownEditedAndRemovedAsTheyStand) {
    const auto shared = openSharedDefaults(desktop_.defaults);
    const auto report = [&](const char* name) {
        auto records = shared->objectForKey(key::arrOfLocationInfo);
        auto array = records.array() ? *records.array() : Array{};
        array.push_back(Dictionary{{"BundleIdentifier", "a"}, {"Name", name}, {"Theirs", 7}});
        desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::arrOfLocationInfo, array);
        desktop_.distributedNotifications.postFromOutside({"AddLocationInfoByTandrel", {}});
        desktop_.runLoop.settle();
    };
    open();
    EXPECT_EQ(actions().numberOfRowsInTableView(window_->locations), 0);
    report("First");
    report("Second");
    EXPECT_EQ(window_->locations.reloads, 2);
    EXPECT_EQ(actions().numberOfRowsInTableView(window_->locations), 2);
    const auto menu = [&] { return cell<PopUpButtonPart>(window_->locations, "Select Input", 1); };
    EXPECT_EQ(menu().title, "-");
    choose(menu(), ru);
    choose(menu(), "-");
    EXPECT_EQ(menu().title, ru) << "\"-\" clears nothing";
    auto name = cell<TextFieldPart>(window_->locations, "Location Name", 1);
    EXPECT_TRUE(name.isEditable);
    EXPECT_TRUE(actions().textShouldEndEditing(name, ""));
    name.identifier = "another's";
    EXPECT_TRUE(actions().textShouldEndEditing(name, "not stored"));
    EXPECT_EQ(shared->objectForKey(key::arrOfLocationInfo).array()->at(1),
              (Dictionary{{"BundleIdentifier", "a"}, {"Name", ""}, {"Theirs", 7}, {"InputID", "ru"}}));

    actions().RemoveLocation();
    window_->locations.selected = 0;
    actions().mouseDownByLocation();
    actions().RemoveLocation();
    EXPECT_TRUE(window_->removeLocation.isEnabled);
    EXPECT_EQ(window_->locations.selected, 0);
    actions().RemoveLocation();
    EXPECT_FALSE(window_->removeLocation.isEnabled);
    EXPECT_EQ(shared->objectForKey(key::arrOfLocationInfo), Array{});
}

TEST_F(Preferences, ASetupIsStartedStoppedAndEndsWithTheWindow) {
    open();
    auto& button = window_->setUp;
    const auto press = [&](int state) {
        button.now = state;
        actions().startOrStopSetUpButtonClick();
    };
    const auto posted = [&] {
        std::vector<std::string> names;
        for (const auto& notification : desktop_.distributedNotifications.posted())
            names.push_back(notification.name);
        return names;
    };
    press(stateOn);
    EXPECT_EQ(button.now, stateOff) << "without the companion";
    EXPECT_EQ(desktop_.alerts.shown.size(), 1U);
    window_->window.close();
    EXPECT_THAT(posted(), ElementsAre("StopSetUpSwitchInputByLocation"));
    launchCompanion();
    press(stateOn);
    EXPECT_EQ(button.title, "Stop Setup");
    EXPECT_EQ(window_->window.style.level, 1);
    EXPECT_EQ(window_->window.style.collectionBehavior, 1U);
    press(stateOff);
    EXPECT_EQ(button.title, "Start Setup");
    EXPECT_EQ(window_->window.style.level, 0);
    EXPECT_THAT(posted(), ElementsAre("StopSetUpSwitchInputByLocation", "StartSetUpSwitchInputByLocation",
                                      "StopSetUpSwitchInputByLocation"));
    EXPECT_EQ(desktop_.alerts.shown.size(), 1U);
}

TEST_F(Preferences, AShortcutTakesEffectWhenItIsRecordedAndWhenItIsCleared) {
    const auto record = [](std::int64_t keyCode, std::int64_t modifierFlags) {
        return Dictionary{{"keyCode", keyCode}, {"modifierFlags", modifierFlags}};
    };
    constexpr std::int64_t control = 0x40000, f5 = 96;
    standard_.setObject(Dictionary{{"ru", record(1, control)}, {"de", record(2, 0)}}, key::shortcutOfInput);
    open();
    const auto recorder = [&](int row) {
        return cell<ShortcutRecorderPart>(window_->shortcuts, "ShortCut", row);
    };
    EXPECT_EQ(recorder(1).objectValue, record(1, control));
    EXPECT_TRUE(recorder(0).objectValue.isNothing());
    EXPECT_FALSE(recorder(0).hasEntry);
    EXPECT_TRUE(recorder(2).objectValue.isNothing()) << "a hot key, but not shown";
    EXPECT_TRUE(recorder(2).hasEntry) << "or nobody could take it away";
    recorder(1).didEndRecording(1, record(f5, 0));
    EXPECT_EQ(recorder(1).objectValue, record(f5, 0));
    EXPECT_FALSE(desktop_.hotKeys.press({1, control}));
    EXPECT_TRUE(desktop_.hotKeys.press({f5, 0}));
    EXPECT_EQ(desktop_.inputSources.currentID(), "ru");
    recorder(0).didEndRecording(0, record(f5, 0));
    EXPECT_EQ(recorder(0).objectValue, record(f5, 0)) << "stored, though it is taken";
    EXPECT_TRUE(recorder(0).isRefused);
    EXPECT_FALSE(recorder(1).isRefused);
    recorder(1).didEndRecording(1, record(f5, 0));
    EXPECT_TRUE(recorder(0).isRefused) << "the other row keeps what it has";
    recorder(1).didEndRecording(1, {});
    EXPECT_FALSE(recorder(0).isRefused);
    EXPECT_TRUE(desktop_.hotKeys.press({f5, 0})) << "moved from one source to another";
    EXPECT_EQ(desktop_.inputSources.currentID(), "us");
    const int reloads = window_->shortcuts.reloads;
    desktop_.hotKeys.takeFromOutside({7, 0});
    recorder(1).didEndRecording(1, record(7, 0));
    desktop_.hotKeys.giveBackFromOutside({7, 0});
    EXPECT_EQ(window_->shortcuts.reloads, reloads + 2) << "the mark goes";
    recorder(1).didEndRecording(1, {});
    EXPECT_EQ(standard_.objectForKey(key::shortcutOfInput),
              (Dictionary{{"us", record(f5, 0)}, {"de", record(2, 0)}}));

    const auto icon = [&](int row) { return cell<ImageViewPart>(window_->shortcuts, "Icon", row); };
    EXPECT_TRUE(icon(0).isTemplate);
    EXPECT_FALSE(icon(1).isTemplate) << "by its place: the third source's";
    EXPECT_EQ(icon(2).image, nullptr);
    EXPECT_EQ(cell<TextFieldPart>(window_->shortcuts, "Input", 2).stringValue, "German");
}

TEST_F(Preferences, TabsLabelsAndLinks) {
    standard_.setObject("ru", key::defaultInput);
    open();
    EXPECT_EQ(window_->defaultInput.title(), ru);
    EXPECT_EQ(window_->version.stringValue, "Pro Version: 1.2");
    EXPECT_EQ(window_->switchTimes.stringValue, "Switch Times: 0");
    desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::switchTimes, 7);
    desktop_.runLoop.settle();
    EXPECT_EQ(window_->switchTimes.stringValue, "Switch Times: 7");
    EXPECT_EQ(window_->tabView.selected, 0);
    EXPECT_TRUE(window_->rules.isShaded);
    actions().Contactus();
    EXPECT_EQ(window_->tabView.selected, 4);
    EXPECT_TRUE(window_->contactUs.isShaded);
    EXPECT_FALSE(window_->rules.isShaded);

    desktop_.clock.now = 1635853234;
    for (const auto* link : {"moreFreeApps", "none of them", "gotoOfficialWebsite"})
        actions().openLink(link);
    EXPECT_THAT(desktop_.links.opened, ElementsAre(testing::StartsWith("http://")));
    desktop_.clock.now += 0.5;
    actions().openLink("moreFreeApps");
    EXPECT_EQ(desktop_.links.opened.size(), 2U);
}

TEST_F(Preferences, RowsAndTablesThatAreNoneAreEmpty) {
    open();
    for (const auto* table : {&window_->applications, &window_->locations, &window_->shortcuts}) {
        for (const auto* column : {"Icon", "Select Input", "ShortCut", "Input", "unknown"}) {
            for (const int row : {-1, 99})
                EXPECT_THAT(actions().viewForTableColumn(*table, column, row).parts, IsEmpty());
        }
        EXPECT_EQ(actions().heightOfRow(*table, 0), 25);
    }
    const SimulatedTableView other;
    EXPECT_EQ(actions().numberOfRowsInTableView(other), 0);
    EXPECT_THAT(actions().viewForTableColumn(other, "Icon", 0).parts, IsEmpty());
    PopUpButtonPart menu = popUp(0);
    choose({.tag = 99, .action = menu.action, .willPopUp = menu.willPopUp}, ru);
    EXPECT_TRUE(standard_.objectForKey(key::autoInput).isNothing());
}

} // namespace
} // namespace quorvane
