#include "preferences/PreferencesFixture.h"

namespace quorvane {
namespace {

TEST_F(Preferences, AreMadeInTheirOrder) {
    play("own:hiddenIconInStatusBar=false own:defaultInput=ru launch |");
    const std::string built =
        "0.01 load preferences; auto start off; tip off; follow off; observe own followWindow; hidden off; "
        "browser "
        "off; observe own enableForceEnglishBrowserAddress; observe AddLocationInfoByTandrel; observe suite "
        "autoStartAtLogin; observe suite enableForceEnglishBrowserAddress; observe suite enableTipOfState; "
        "observe "
        "suite followWindow; observe suite hiddenIconInStatusBar; observe own SwitchTimes; observe suite "
        "SwitchTimes; switch times '*Switch Times: 0'; preferences movable; remove application disabled; "
        "remove "
        "location disabled; version '*Pro Version: 1.2'; set up '*Start Setup'; list all; default input "
        "['-', "
        "'U.S.', 'Russian', 'German']; default input 'Russian'; applications take dragged rows; observe "
        "launches; preferences in; activate; tab 0; Rules shaded; Preference clear; Learn clear; Contact us "
        "clear; Free apps clear";
    EXPECT_EQ(play("| preferences 1 preferences 1"), (Lines{built, "1.01 preferences in; activate"}));
    EXPECT_EQ(play("| writes:SwitchTimes=7 1 writes:SwitchTimes=many"),
              (Lines{"0 switch times '*Switch Times: 7'", "1 switch times '*Switch Times: many'"}));
}

TEST_F(Preferences, CheckBoxesShowAndStoreTheirSettings) {
    open();
    auto &autoStart = window_->autoStart, &tip = window_->tip, &follow = window_->follow,
         &hidden = window_->hidden, &browser = window_->browser;
    const auto click = [](SimulatedCheckBox& box, int state) { return [&box, state] { box.click(state); }; };
    const std::string loginItem = "; login item " + std::string(maker::loginItemIdentifier);
    expectSteps({
        {"",
         click(autoStart, stateOn),
         {"0 own autoStartAtLogin = true" + loginItem +
          " on; log Call LoginItemSetEnabled with [1] success; auto start on"}},
        {"",
         click(tip, stateOn),
         {"0 own enableTipOfState = true; icon shown; box shown; icon 18x18; tip on"}},
        {"", click(follow, stateOn), {"0 own followWindow = true; follow on"}},
        {"", click(hidden, stateOn), {"0 own hiddenIconInStatusBar = true; hidden on"}},
        {"",
         click(browser, stateOn),
         {"0 own enableForceEnglishBrowserAddress = true; suite enableForceEnglishBrowserAddress = true; "
          "synchronize suite; browser on"}},
        {"", click(follow, stateOff), {"0 own followWindow = false; follow off"}},
        {"stored elsewhere",
         [&] { standard_.setBool(true, key::followWindow); },
         {"0 own followWindow = true; follow on"}},
    });
}

TEST_F(Preferences, TabsShadeTheirHeaders) {
    open();
    expectSteps({
        {"",
         [&] { actions().Preference(); },
         {"0 tab 1; Preference shaded; Rules clear; Learn clear; Contact us clear; Free apps clear"}},
        {"",
         [&] { actions().Learn(); },
         {"0 tab 2; Learn shaded; Rules clear; Preference clear; Contact us clear; Free apps clear"}},
        {"",
         [&] { actions().FreeApps(); },
         {"0 tab 3; Free apps shaded; Rules clear; Preference clear; Learn clear; Contact us clear"}},
        {"",
         [&] { actions().Contactus(); },
         {"0 tab 4; Contact us shaded; Rules clear; Preference clear; Learn clear; Free apps clear"}},
        {"",
         [&] { actions().Rules(); },
         {"0 tab 0; Rules shaded; Preference clear; Learn clear; Contact us clear; Free apps clear"}},
    });
}

TEST_F(Preferences, EachLinkOpensItsPage) {
    open();
    const std::string site(maker::website), secure = "0 open https://" + site;
    const std::string review = "0 open macappstore://" + std::string(maker::storeReview);
    desktop_.clock.now = 1635853234;
    const std::pair<const char*, Lines> links[] = {
        {"QQExchangeGroup", {secure + "/qq-group?statId=53"}},
        {"technicalSupport", {secure + "/support"}},
        {"feedbackOfSwitchLocation", {secure + "/support"}},
        {"moreFreeApps", {}},
        {"instructionsForChangedInputByLocation", {secure + "/switch-by-location"}},
        {"gotoQuorvane", {review + std::string(maker::storeIdentifier)}},
        {"gotoQuorvanePro", {review + std::string(maker::storeIdentifierOfPro)}},
        {"TeachingVideo", {secure + "/video"}},
        {"FAQDocument", {secure + "/faq"}},
        {"gotoOfficialWebsite", {"0 open http://" + site + "/"}},
        {"privacyPolicy", {secure + "/privacy"}},
        {"termsOfUse", {secure + "/terms"}},
        {"none of them", {}},
    };
    for (const auto& link : links)
        expectSteps({{link.first, [&] { actions().openLink(link.first); }, link.second}});
    desktop_.clock.now += 0.5;
    desktop_.desktop.facts.reviewPageOfPro = "https://review/pro";
    expectSteps(
        {{"later", [&] { actions().openLink("moreFreeApps"); }, {secure + "/"}},
         {"without a store", [&] { actions().openLink("gotoQuorvanePro"); }, {"0 open https://review/pro"}}});
}

TEST_F(Preferences, HelpIsOpenedWhereTheMakerHasNoWebPages) {
    open();
    auto& facts = desktop_.desktop.facts;
    facts.helpPage = "file:///help";
    PreferencesLinks without(desktop_.links, desktop_.clock, facts, false);
    PreferencesLinks with(desktop_.links, desktop_.clock, facts, true);
    const std::string site = "0 open https://" + std::string(maker::website), help = "0 open file:///help";
    const auto questions = maker::hasWebsite ? site + "/faq" : help + "#questions";
    expectSteps({
        {"", [&] { without.open("TeachingVideo"); }, {help + "#start"}},
        {"", [&] { without.open("FAQDocument"); }, {help + "#questions"}},
        {"", [&] { without.open("instructionsForChangedInputByLocation"); }, {help + "#places"}},
        {"help does not say this", [&] { without.open("technicalSupport"); }, {site + "/support"}},
        {"a maker with pages", [&] { with.open("FAQDocument"); }, {site + "/faq"}},
        {"the window knows which", [&] { actions().openLink("FAQDocument"); }, {questions}},
    });
}

TEST_F(Preferences, RowsAndTablesThatAreNoneAreEmpty) {
    open();
    for (const auto* table : {&window_->applications, &window_->locations, &window_->shortcuts}) {
        for (const auto* column : {"Icon", "Select Input", "ShortCut", "Input", "unknown"}) {
            for (const int row : {-1, 99})
                EXPECT_TRUE(source().viewForTableColumn(*table, column, row).parts.empty());
        }
        EXPECT_EQ(source().heightOfRow(*table, 0), 25);
    }
    SimulatedTableView other(desktop_.journal, "other");
    EXPECT_EQ(source().numberOfRowsInTableView(other), 0);
    EXPECT_TRUE(source().viewForTableColumn(other, "Icon", 0).parts.empty());
    const auto menu = popUp(0);
    expectSteps({{"no row",
                  [&] { choose({.tag = 99, .action = menu.action, .willPopUp = menu.willPopUp}, ru); },
                  {}}});
}

TEST_F(Preferences, ShowTheInputSourcesOfTheirOpeningWhereTheseComeAndGo) {
    const std::string shown =
        "0.01 list all; default input ['-', 'U.S.', 'Russian', 'German', 'pinyin']; "
        "applications reload; locations reload; shortcuts reload; preferences in; activate";
    for (const bool comeAndGo : {false, true}) {
        desktop_.desktop.facts.inputSourcesComeAndGo = comeAndGo;
        desktop_.inputSources.disable("pinyin");
        standard_.setBool(false, key::hiddenIconInStatusBar);
        open();
        EXPECT_EQ(play("| another:pinyin preferences 1"), Lines{"0.01 preferences in; activate"})
            << "it was open";
        window_->window.close();
        EXPECT_EQ(play("| preferences 1"), Lines{comeAndGo ? shown : "0.01 preferences in; activate"});
    }
}

} // namespace
} // namespace quorvane
