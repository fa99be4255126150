#include <limits>

#include <gmock/gmock.h>

#include "input/IconLoading.h"
#include "input/InputSourceCatalogue.h"
#include "input/InputSwitch.h"
#include "input/MonochromeTest.h"
#include "input/StateTip.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

class InputSources : public ProgramTest {};

TEST_F(InputSources, TheIconIsTheReferenceElseThePictureElseTheTiffBesideIt) {
    const auto icon = SimulatedImage::ofColor({16, 16}, 1, 2, 3);
    desktop_.inputSources.icons["drawn"] = icon;
    for (const auto* url : {"file:///a/icon.png", "file:///b/icon.tiff", "file:///c.d/icon.tiff"})
        desktop_.images.byURL[url] = icon;
    const std::pair<InputSource, bool> cases[] = {
        {{.id = "drawn", .hasIconReference = true}, true},
        {{.id = "undrawable", .hasIconReference = true, .iconImageURL = "file:///a/icon.png"}, false},
        {{.id = "s", .iconImageURL = "file:///a/icon.png"}, true},
        {{.id = "s", .iconImageURL = "file:///b/icon.pdf"}, true},
        {{.id = "s", .iconImageURL = "file:///c.d/icon"}, true},
        {{.id = "s", .iconImageURL = "file:///missing.png"}, false},
        {{.id = "s"}, false},
    };
    for (const auto& [source, loads] : cases)
        EXPECT_EQ(loadIcon(source, desktop_.inputSources, desktop_.images) != nullptr, loads)
            << source.id << source.iconImageURL;
}

TEST_F(InputSources, TheCatalogueHoldsSelectableKeyboardSourcesOnly) {
    auto& sources = desktop_.inputSources;
    sources.enable({.id = "palette", .category = InputSourceCategory::other});
    sources.enable({.id = "us"});
    sources.enable({.id = "parent", .isSelectCapable = false});
    sources.enable({.id = "ru", .hasIconReference = true});
    sources.names["ru"] = "Русская";
    sources.icons["ru"] = SimulatedImage::ofColor({16, 16}, 1, 2, 3);

    const auto catalogue = InputSourceCatalogue::build(sources, desktop_.images);
    EXPECT_THAT(catalogue.arrOfInputInfo,
                ElementsAre(InputSourceInfo{"us", "us"}, InputSourceInfo{"ru", "Русская"}));
    EXPECT_THAT(catalogue.arrOfInputName, ElementsAre("-", "us", "Русская"));
    EXPECT_EQ(catalogue.iconAt(0), sources.icons["ru"]) << "a missing icon leaves no gap";
    EXPECT_EQ(catalogue.iconAt(1), nullptr);
    EXPECT_EQ(catalogue.nameOfInput("ru"), "Русская");
    EXPECT_EQ(catalogue.nameOfInput("gone"), std::nullopt);
}

TEST_F(InputSources, AHotKeySwitchesUnlessItNeedNotOrMustNot) {
    // clang-format off
    const struct {
        const char *what, *wanted, *frontmost;
        bool companionRuns;
        std::vector<std::string> selections;
        int count;
        bool asks;
    } cases[] = {
        {"switches", "ru", "an.app", false, {"ru"}, 1, false},
        {"counts even when it finds nothing", "gone", "an.app", false, {}, 1, false},
        {"is current already", "us", "an.app", false, {}, 0, false},
        {"Spotlight is in front", "ru", "com.apple.Spotlight", false, {}, 0, false},
        {"Alfred is in front", "ru", "com.runningwithcrayons.Alfred-3", false, {}, 0, false},
        {"only looks like Spotlight", "ru", "com.apple.Spotlight.helper", false, {"ru"}, 1, false},
        {"the companion runs", "ru", "an.app", true, {}, 0, true},
        {"the companion runs behind a launcher", "ru", "com.runningwithcrayons.Alfred", true, {}, 0, false},
    };
    // clang-format on
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.what);
        SimulatedDesktop desktop;
        for (const auto* id : {"us", "ru"})
            desktop.inputSources.enable({.id = id});
        desktop.workspace.activate(expected.frontmost);
        if (expected.companionRuns) desktop.workspace.launch(std::string(maker::companionBundleIdentifier));
        CompanionLink companion(desktop.workspace, desktop.defaults, desktop.distributedNotifications);
        int resets = 0;
        const OpenLaunchers none;
        InputSwitch inputSwitch(desktop.inputSources, desktop.defaults, desktop.workspace,
                                desktop.desktop.facts.launchers, none, companion, [&resets] { ++resets; });

        inputSwitch.changeInputTo(expected.wanted);
        EXPECT_EQ(desktop.inputSources.selections(), expected.selections);
        EXPECT_EQ(resets, expected.count);
        const auto shared = openSharedDefaults(desktop.defaults);
        EXPECT_EQ(shared->integerForKey(key::switchTimes), expected.count);
        const auto& posted = desktop.distributedNotifications.posted();
        ASSERT_EQ(posted.size(), expected.asks ? 1U : 0U);
        if (expected.asks) {
            EXPECT_EQ(shared->stringForKey(key::askTandrelSwitchInput), expected.wanted);
            EXPECT_EQ(posted.front().name, "AskTandrelSwitchInput");
            EXPECT_TRUE(posted.front().userInfo.isNothing());
        }
        desktop.inputSources.selectFromOutside("");
        EXPECT_EQ(inputSwitch.currentInputSourceID(), "");
    }
}

TEST_F(InputSources, TheCompanionIsAskedOnlyOnceTheRequestCanBeRead) {
    for (const auto* id : {"us", "ru", "de"})
        desktop_.inputSources.enable({.id = id});
    desktop_.workspace.launch(std::string(maker::companionBundleIdentifier));
    CompanionLink companion(desktop_.workspace, desktop_.defaults, desktop_.distributedNotifications);
    const OpenLaunchers none;
    InputSwitch inputSwitch(desktop_.inputSources, desktop_.defaults, desktop_.workspace,
                            desktop_.desktop.facts.launchers, none, companion, [] {});
    const auto slot = [&] {
        return desktop_.defaults.readFromOutside(maker::sharedSuiteName, key::askTandrelSwitchInput);
    };
    const auto& posted = desktop_.distributedNotifications.posted();
    desktop_.defaults.setWritable(maker::sharedSuiteName, false);
    inputSwitch.changeInputTo("de");
    inputSwitch.changeInputTo("ru");
    EXPECT_TRUE(posted.empty());
    EXPECT_TRUE(slot().isNothing());
    desktop_.defaults.setWritable(maker::sharedSuiteName, true);
    EXPECT_EQ(posted.size(), 1U) << "the last one counts";
    EXPECT_EQ(slot(), PropertyList("ru"));

    desktop_.defaults.setWritable(maker::sharedSuiteName, false);
    inputSwitch.changeInputTo("de");
    inputSwitch.changeInputTo(inputSwitch.currentInputSourceID());
    desktop_.defaults.setWritable(maker::sharedSuiteName, true);
    EXPECT_EQ(posted.size(), 1U) << "nobody wants that any more";
}

TEST_F(InputSources, AMonochromeIconStandsOnTheBoxAtEighteenPoints) {
    const auto black = SimulatedImage::ofColor({32, 32}, 0, 0, 0);
    const auto coloured = std::make_shared<SimulatedImage>(Size{2, 1}, Bytes{255, 0, 9, 0, 0, 255, 99, 0});
    const struct {
        const char* what;
        ImageRef icon;
        bool enabled, iconHidden, boxHidden;
        std::optional<Size> shown;
    } cases[] = {
        {"monochrome", black, true, false, false, Size{18, 18}},
        {"coloured", coloured, true, false, true, Size{2, 1}},
        {"missing", nullptr, true, false, true, std::nullopt},
        {"indicator off", black, false, true, true, std::nullopt},
    };
    auto& view = desktop_.interfaceFiles.iconView;
    auto& box = desktop_.interfaceFiles.iconBox;
    StateTip stateTip(desktop_.inputSources, desktop_.images, desktop_.defaults, view, box);
    desktop_.inputSources.enable({.id = "us", .hasIconReference = true});
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.what);
        standard_.setBool(expected.enabled, key::enableTipOfState);
        desktop_.inputSources.icons["us"] = expected.icon;
        view.image = nullptr;
        stateTip.inputChnagedNotification();
        EXPECT_EQ(view.isHidden, expected.iconHidden);
        EXPECT_EQ(box.isHidden, expected.boxHidden);
        EXPECT_EQ(view.image ? std::optional(view.image->size()) : std::nullopt, expected.shown);
    }
}

TEST(MonochromeTest, TellsIconsOfOneColourFromColouredOnes) {
    const Bytes grey{9, 9, 9, 255};
    const struct {
        const char* what;
        Size size;
        Bytes bytes;
        bool isMonochrome;
    } pictures[] = {
        {"grey all over", {2, 1}, {80, 80, 80, 255, 80, 80, 80, 255}, true},
        {"black and white", {2, 1}, {0, 0, 0, 255, 255, 255, 255, 255}, false},
        {"first and second channel just close enough", {2, 1}, {10, 10, 200, 0, 13, 13, 0, 0}, true},
        {"no two channels close enough", {2, 1}, {10, 10, 200, 0, 14, 13, 0, 0}, false},
        {"second channel and last third byte: one colour", {2, 1}, {10, 5, 99, 0, 16, 5, 16, 0}, true},
        {"third channel wild but for the last pixel", {3, 1}, {8, 8, 0, 0, 8, 8, 255, 0, 8, 8, 8, 0}, true},
        {"first channel alone may vary", {2, 1}, {0, 40, 0, 0, 3, 40, 3, 0}, true},
        {"first channel varies widely", {2, 1}, {0, 40, 0, 0, 90, 40, 90, 0}, false},
        {"zero width", {0, 5}, grey, false},
        {"zero height", {5, 0}, grey, false},
        {"less than a point high", {5, 0.9}, grey, false},
        {"no bytes", {5, 5}, {}, false},
        {"three bytes of a pixel", {5, 5}, {1, 1, 1}, false},
        {"fewer bytes than the size promises", {500, 500}, grey, true},
        {"more bytes than the size needs", {1, 1}, {9, 9, 9, 0, 255, 0, 255, 0}, true},
        {"not a number", {std::numeric_limits<double>::quiet_NaN(), 5}, grey, false},
        {"negative", {-3, 5}, grey, false},
        {"as large as numbers go", {std::numeric_limits<double>::max(), 5}, grey, false},
    };
    for (const auto& picture : pictures)
        EXPECT_EQ(isMonochrome(picture.size, picture.bytes), picture.isMonochrome) << picture.what;
    EXPECT_FALSE(isMonochrome(nullptr));
}

} // namespace
} // namespace quorvane
