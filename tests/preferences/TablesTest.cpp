#include "preferences/PreferencesFixture.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;
using Array = PropertyList::Array;

TEST_F(Preferences, TheRowsAreRulesAndRunningApplicationsInTheUsersOrder) {
    desktop_.workspace.launch("agent", ActivationPolicy::accessory);
    desktop_.workspace.launch(alfredIdentifier, ActivationPolicy::accessory);
    desktop_.workspace.launch(RunningApplication{.localizedName = "nameless"});
    desktop_.applicationBundles.paths["ruled"] = "/apps/ruled";
    for (const auto* id : {"ruled", "not.installed", "c"})
        setRuleInput(standard_, id, "ru");
    standard_.setObject(Array{"b", "c", "ruled", 7}, key::notDisplayAppName);
    const auto found = [&] {
        return buildArrOfApps(standard_, desktop_.workspace, desktop_.applicationBundles, {});
    };
    EXPECT_EQ(found(), (Lines{"c", "ruled", "a", alfredIdentifier}));
    standard_.setObject(Array{"a", "gone", "ruled"}, key::orderOfAppsRule);
    EXPECT_EQ(found(), (Lines{"a", "ruled", "c", alfredIdentifier}));
}

TEST_F(Preferences, ARowIsDroppedWhereTheSystemDropsIt) {
    const Lines order{"0", "1", "2", "3", "4"};
    EXPECT_EQ(reordered(order, 0, 3), (Lines{"1", "2", "3", "0", "4"})) << "one below the gap";
    EXPECT_EQ(reordered(order, 0, 5), (Lines{"1", "2", "3", "4", "0"}));
    EXPECT_EQ(reordered(order, 3, 1), (Lines{"0", "3", "1", "2", "4"}));
    for (const auto& [dragged, target] : {std::pair{-1, 2}, {5, 2}, {1, -1}, {1, 6}})
        EXPECT_EQ(reordered(order, dragged, target), order);

    open();
    const auto drop = [&](const TableView& table, const TableView* from) {
        return [&, from] { EXPECT_TRUE(source().acceptDrop(table, from, 0, 3)); };
    };
    auto &applications = window_->applications, &locations = window_->locations;
    expectSteps(
        {{"from elsewhere", drop(applications, &locations), {}},
         {"to elsewhere", drop(locations, &locations), {}},
         {"from another program", drop(applications, nullptr), {}},
         {"in the table",
          drop(applications, &applications),
          {"0 own orderOfAppsRule = ['b', 'c', 'a']; synchronize own; applications reload; applications "
           "deselect"}}});
    EXPECT_EQ(rows(), (Lines{"Name of b", "Name of c", "Name of a"}));
}

TEST_F(Preferences, ARowsMenuShowsAndSetsItsSource) {
    setRuleInput(standard_, "b", "ru");
    setRuleInput(standard_, "c", "gone");
    desktop_.inputSources.enable({.id = "second"});
    desktop_.inputSources.names["second"] = ru; // the first of a name counts
    open();
    EXPECT_EQ(rows(), (Lines{"Name of b", "Name of c", "Name of a"}));
    const auto titles = [&] { return Lines{popUp(0).title, popUp(1).title, popUp(2).title}; };
    EXPECT_EQ(popUp(1).itemTitles, (Lines{"-", us, ru, german, ru}));
    EXPECT_EQ(titles(), (Lines{ru, "-", "-"}));
    const std::string rules = "0 own autoInput = {", mirrored = "; suite autoInput = {",
                      done = "; synchronize suite; synchronize own";
    const auto writes = [&](const std::string& all) { return rules + all + mirrored + all + done; };
    expectSteps({
        {"a source",
         [&] { choose(popUp(2), ru); },
         {writes("a: {id: 'ru'}, b: {id: 'ru'}, c: {id: 'gone'}}") + "; applications reload"}},
        {"none", [&] { choose(popUp(0), "-"); }, {writes("a: {id: 'ru'}, b: {}, c: {id: 'gone'}}")}},
        {"no source", [&] { choose(popUp(0), "gone"); }, {"0 applications reload"}},
        {"the default one",
         [&] {
             window_->defaultInput.selected = 1;
             actions().defaultInputChanged();
         },
         {"0 own defaultInput = 'us'; applications reload"}},
        {"the row is that of the menu that opened last",
         [&] {
             popUp(1).willPopUp(1);
             popUp(2).action(german);
         },
         {writes("a: {id: 'ru'}, b: {}, c: {id: 'de'}}") + "; applications reload"}},
    });
    EXPECT_EQ(popUp(1).itemTitles, (Lines{us, ru, german, ru})) << "\"-\" is the default's now";
    EXPECT_EQ(titles(), (Lines{us, german, ru}));
    window_->defaultInput.selected = 0;
    expectSteps({{"no default",
                  [&] { actions().defaultInputChanged(); },
                  {"0 own defaultInput = none; applications reload"}}});
}

TEST_F(Preferences, EnglishSymbolsNeedTheCompanion) {
    open();
    const auto box = [&] { return cell<CheckBoxPart>(window_->applications, "Force English Symbols", 0); };
    const auto click = [&](int state) { return [&, state] { box().action(0, state); }; };
    const auto written = [](const std::string& rule) {
        return Lines{"0 own autoInput = " + rule + "; suite autoInput = " + rule +
                     "; synchronize suite; synchronize own"};
    };
    expectSteps({
        {"without", click(stateOn), {"0 " + companionSheet}},
        {"Cancel", [&] { desktop_.alerts.answerSheet(alertFirstButtonReturn + 1); }, {}},
        {"Download",
         [&] { desktop_.alerts.answerSheet(alertFirstButtonReturn); },
         {"0 open " + std::string(maker::companionDownloadPage)}},
    });
    EXPECT_EQ(box().state, stateOff);
    happen("companion");
    expectSteps({{"on", click(stateOn), written("{a: {Force English Symbols: 1}}")}});
    EXPECT_EQ(box().state, stateOn);
    expectSteps({{"off", click(stateOff), written("{a: {Force English Symbols: 0}}")}});
    const auto symbol = written("{a: {English Symbol: '1', Force English Symbols: 0}}").front();
    expectSteps(
        {{"", [&] { actions().onEnglishSymbolChanged(0, stateOn); }, {symbol + "; applications reload"}}});
}

TEST_F(Preferences, ApplicationsAreAddedRemovedAndNoticed) {
    setRuleInput(standard_, "b", "ru");
    open();
    auto& selected = window_->applications.selected;
    const auto remove = [&] { actions().RemoveApplication(); };
    const auto launches = [&](const char* id) {
        return [&, id] { desktop_.workspace.launch(id, ActivationPolicy::accessory); };
    };
    const auto choose = [&](std::optional<std::string> id) {
        return [&, id] { desktop_.openPanel.choose(id); };
    };
    const std::string hidden = "own notDisplayAppName = ";
    const std::string noRules =
        "0 own autoInput = {}; suite autoInput = {}; synchronize suite; synchronize own; ";
    expectSteps({
        {"nothing selected", remove, {}},
        {"a click",
         [&] {
             selected = 0;
             actions().mouseDownByApplication();
         },
         {"0 remove application enabled"}},
        {"the first, which is b",
         remove,
         {noRules + hidden + "['b']; synchronize own; applications reload; applications select 0"}},
        {"the last",
         [&] {
             selected = 1;
             remove();
         },
         {noRules + hidden +
          "['b', 'c']; synchronize own; applications reload; remove application disabled"}},
        {"it was removed", launches("b"), {}},
        {"a background one", launches("late"), {"0 applications reload"}},
        {"it is there", launches("late"), {}},
        {"nameless", [&] { desktop_.workspace.launch(RunningApplication{.localizedName = "nameless"}); }, {}},
        {"the button",
         [&] {
             selected = noRow;
             actions().AddApplication();
         },
         {"0 activate; open panel; remove application disabled"}},
        {"no application", choose(std::nullopt), {}},
        {"a removed one", choose("b"), {"0 " + hidden + "['c']; synchronize own; applications reload"}},
        {"one that is there", choose("a"), {}},
    });
    EXPECT_EQ(rows(), (Lines{"Name of a", "", "Name of b"})) << "one that is not installed has no name";
}

TEST_F(Preferences, LocationsAreShownEditedAndRemovedAsTheyStand) {
    const auto report = [&](const Array& records) {
        desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key::arrOfLocationInfo, records);
        happen("reports:AddLocationInfoByTandrel");
    };
    const Dictionary first{{"BundleIdentifier", "a"}, {"Name", "First"}, {"Theirs", 7}},
        second{{"BundleIdentifier", "gone"}, {"InputID", "gone"}};
    open();
    EXPECT_EQ(source().numberOfRowsInTableView(window_->locations), 0);
    expectSteps(
        {{"told",
          [&] {
              report({first, second});
          },
          {}},
         {"at the next turn of the run loop", [&] { desktop_.runLoop.settle(); }, {"0 locations reload"}}});
    EXPECT_EQ(source().numberOfRowsInTableView(window_->locations), 2);
    const auto menu = [&](int row) { return cell<PopUpButtonPart>(window_->locations, "Select Input", row); };
    EXPECT_EQ(menu(0).itemTitles, (Lines{"-", us, ru, german}));
    EXPECT_EQ(menu(1).title, "-") << "it is not there any more";
    EXPECT_NE(cell<ImageViewPart>(window_->locations, "Icon", 0).image, nullptr);
    EXPECT_EQ(cell<ImageViewPart>(window_->locations, "Icon", 1).image, nullptr);
    auto name = cell<TextFieldPart>(window_->locations, "Location Name", 0);
    EXPECT_EQ(name.stringValue, "First");
    EXPECT_TRUE(name.isEditable);

    const std::string second_ = "{BundleIdentifier: 'gone', InputID: 'gone'}]";
    const std::string writes = "0 suite arrOfLocationInfo = ", done = "; synchronize suite; locations reload";
    const auto rename = [&](const char* text) {
        return [&, text] { EXPECT_TRUE(source().textShouldEndEditing(name, text)); };
    };
    auto& selected = window_->locations.selected;
    expectSteps({
        {"a source",
         [&] {
             ProgramTest::Lines();
             choose(menu(0), ru);
         },
         {writes + "[{BundleIdentifier: 'a', InputID: 'ru', Name: 'First', Theirs: 7}, " + second_ + done}},
        {"\"-\" clears nothing", [&] { choose(menu(0), "-"); }, {"0 locations reload"}},
        {"renamed",
         rename(""),
         {writes + "[{BundleIdentifier: 'a', InputID: 'ru', Name: '', Theirs: 7}, " + second_ + done}},
        {"another control",
         [&] {
             name.identifier = "another's";
             rename("x")();
         },
         {}},
        {"nothing selected", [&] { actions().RemoveLocation(); }, {}},
        {"a click",
         [&] {
             selected = 0;
             actions().mouseDownByLocation();
         },
         {"0 remove location enabled"}},
        {"the first",
         [&] { actions().RemoveLocation(); },
         {writes + "[" + second_ + done + "; locations select 0"}},
        {"the last",
         [&] { actions().RemoveLocation(); },
         {writes + "[]" + done + "; remove location disabled"}},
        {"a click on nothing",
         [&] {
             selected = noRow;
             actions().mouseDownByLocation();
         },
         {"0 remove location disabled"}},
    });
}

TEST_F(Preferences, ASetupIsStartedAndStopped) {
    standard_.setBool(false, key::hiddenIconInStatusBar); // or closing ends the program
    open();
    const auto press = [&](int state) {
        return [&, state] {
            window_->setUp.now = state;
            actions().startOrStopSetUpButtonClick();
        };
    };
    const std::string stopped = "preferences level 0; preferences behavior 0; set up '*Start Setup'; post "
                                "StopSetUpSwitchInputByLocation";
    expectSteps({{"the window closes", [&] { window_->window.close(); }, {"0 set up off; " + stopped}},
                 {"without the companion", press(stateOn), {"0 set up off; " + companionSheet}}});
    happen("companion");
    expectSteps({{"on",
                  press(stateOn),
                  {"0 preferences level 1; preferences behavior 1; set up '*Stop Setup'; post "
                   "StartSetUpSwitchInputByLocation"}},
                 {"off", press(stateOff), {"0 " + stopped}}});
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
    EXPECT_EQ(recorder(1).allowedModifierFlags, 0x1E0000U);
    EXPECT_TRUE(recorder(1).allowsEmptyModifierFlags);
    EXPECT_TRUE(recorder(0).objectValue.isNothing());
    EXPECT_FALSE(recorder(0).hasEntry);
    EXPECT_TRUE(recorder(2).objectValue.isNothing()) << "a hot key, but not shown";
    EXPECT_TRUE(recorder(2).hasEntry) << "or nobody could take it away";
    const auto ends = [&](int row, PropertyList value) {
        return [&, row, value] { recorder(0).didEndRecording(row, value); };
    };
    const std::string stored = "own shortcutOfInput = {de: {keyCode: 2, modifierFlags: 0}";
    const std::string done = "}; synchronize own; shortcuts reload",
                      shownF5 = "{keyCode: 96, modifierFlags: 0}";
    expectSteps({
        {"anew",
         ends(1, record(f5, 0)),
         {"0 unregister 1 0x40000; register 96 0x0; " + stored + ", ru: " + shownF5 + done}},
        {"stored, though it is taken",
         ends(0, record(f5, 0)),
         {"0 register 96 0x0, refused; " + stored + ", ru: " + shownF5 + ", us: " + shownF5 + done}},
    });
    EXPECT_EQ(recorder(1).objectValue, record(f5, 0));
    EXPECT_TRUE(recorder(0).isRefused);
    EXPECT_FALSE(recorder(1).isRefused);
    expectSteps({
        {"the window's hot keys select, too",
         [&] {
             desktop_.hotKeys.press({f5, 0});
         },
         {"0 suite SwitchTimes = 1; switch times '*Switch Times: 1'; keep us; list ru; select ru; window in; "
          "window out"}},
        {"cleared, it moves to the other row",
         ends(1, {}),
         {"0 unregister 96 0x0; register 96 0x0; " + stored + ", us: " + shownF5 + done}},
        {"cleared again", ends(1, {}), {"0 " + stored + ", us: " + shownF5 + done}},
        {"no row", ends(7, record(7, 0)), {}},
    });
    const auto icon = [&](int row) { return cell<ImageViewPart>(window_->shortcuts, "Icon", row); };
    EXPECT_EQ(icon(0).image->size(), (Size{18, 18}));
    EXPECT_TRUE(icon(0).isTemplate);
    EXPECT_FALSE(icon(1).isTemplate);
    EXPECT_EQ(icon(2).image, nullptr) << "no third icon was loaded";
    EXPECT_EQ(cell<TextFieldPart>(window_->shortcuts, "Input", 2).stringValue, german);
    desktop_.hotKeys.takeFromOutside({7, 0});
    recorder(1).didEndRecording(1, record(7, 0));
    expectSteps({{"the mark goes",
                  [&] {
                      desktop_.hotKeys.giveBackFromOutside({7, 0});
                  },
                  {"0 unregister 2 0x0; register 2 0x0; register 7 0x0; unregister 96 0x0; register 96 0x0; "
                   "shortcuts reload"}}});
}

} // namespace
} // namespace quorvane
