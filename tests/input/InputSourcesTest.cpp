#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "input/IconLoading.h"
#include "input/InputChangeWatch.h"
#include "input/InputSourceCatalogue.h"
#include "input/InputSwitch.h"
#include "input/StateTip.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class InputSources : public testing::Test {
protected:
    std::int64_t switchTimes() {
        return openSharedDefaults(desktop_.defaults)->integerForKey(key::switchTimes);
    }

    SimulatedDesktop desktop_;
    CompanionLink companion_{desktop_.workspace, desktop_.defaults, desktop_.distributedNotifications};
    int resets_ = 0;
    InputSwitch inputSwitch_{desktop_.inputSources, desktop_.defaults, desktop_.workspace, companion_,
                             [this] { ++resets_; }};
    StateTip stateTip_{desktop_.inputSources, desktop_.images, desktop_.defaults,
                       desktop_.interfaceFiles.iconView, desktop_.interfaceFiles.iconBox};
};

TEST_F(InputSources, TheIconIsTheReferenceElseThePictureElseTheTiffBesideIt) {
    const auto icon = SimulatedImage::ofColor({16, 16}, 1, 2, 3);
    desktop_.inputSources.icons["drawn"] = icon;
    for (const auto* url : {"file:///a/icon.png", "file:///b/icon.tiff", "file:///c.d/icon.tiff"})
        desktop_.images.byURL[url] = icon;
    const struct {
        InputSource source;
        bool loads;
    } cases[] = {
        {{.id = "drawn", .hasIconReference = true}, true},
        {{.id = "undrawable", .hasIconReference = true, .iconImageURL = "file:///a/icon.png"}, false},
        {{.id = "s", .iconImageURL = "file:///a/icon.png"}, true},
        {{.id = "s", .iconImageURL = "file:///b/icon.pdf"}, true},
        {{.id = "s", .iconImageURL = "file:///c.d/icon"}, true},
        {{.id = "s", .iconImageURL = "file:///missing.png"}, false},
        {{.id = "s"}, false},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(loadIcon(expected.source, desktop_.inputSources, desktop_.images) != nullptr,
                  expected.loads)
            << expected.source.id << expected.source.iconImageURL;
    }
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

TEST_F(InputSources, ASelectionCountsEvenWhenItFindsNothing) {
    desktop_.inputSources.enable({.id = "us"});
    desktop_.inputSources.enable({.id = "ru"});
    inputSwitch_.selectInputSource("ru");
    EXPECT_EQ(inputSwitch_.currentInputSourceID(), "ru");
    inputSwitch_.selectInputSource("gone");
    EXPECT_EQ(inputSwitch_.currentInputSourceID(), "ru");
    EXPECT_EQ(switchTimes(), 2);

    desktop_.inputSources.selectFromOutside("");
    EXPECT_EQ(inputSwitch_.currentInputSourceID(), "");
}

TEST_F(InputSources, AHotKeySwitchesUnlessItNeedNotOrMustNot) {
    const struct {
        const char* what;
        const char* wanted;
        const char* frontmost;
        bool companionRuns;
        std::vector<std::string> selections;
        std::vector<std::string> asked;
    } cases[] = {
        {"switches", "ru", "an.app", false, {"ru"}, {}},
        {"is current already", "us", "an.app", false, {}, {}},
        {"Spotlight is in front", "ru", "com.apple.Spotlight", false, {}, {}},
        {"Alfred is in front", "ru", "com.runningwithcrayons.Alfred-3", false, {}, {}},
        {"only looks like Spotlight", "ru", "com.apple.Spotlight.helper", false, {"ru"}, {}},
        {"the companion runs", "ru", "an.app", true, {}, {"ru"}},
        {"the companion runs, but a launcher is in front",
         "ru",
         "com.runningwithcrayons.Alfred",
         true,
         {},
         {}},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.what);
        SimulatedDesktop desktop;
        desktop.inputSources.enable({.id = "us"});
        desktop.inputSources.enable({.id = "ru"});
        desktop.workspace.activate(expected.frontmost);
        if (expected.companionRuns) desktop.workspace.launch(std::string(maker::companionBundleIdentifier));
        CompanionLink companion(desktop.workspace, desktop.defaults, desktop.distributedNotifications);
        int resets = 0;
        InputSwitch inputSwitch(desktop.inputSources, desktop.defaults, desktop.workspace, companion,
                                [&resets] { ++resets; });

        inputSwitch.changeInputTo(expected.wanted);
        EXPECT_EQ(desktop.inputSources.selections(), expected.selections);
        EXPECT_EQ(resets, static_cast<int>(expected.selections.size()));
        const auto shared = openSharedDefaults(desktop.defaults);
        EXPECT_EQ(shared->integerForKey(key::switchTimes), static_cast<int>(expected.selections.size()));
        EXPECT_EQ(desktop.distributedNotifications.posted().size(), expected.asked.size());
        if (!expected.asked.empty()) {
            EXPECT_EQ(shared->stringForKey(key::askTandrelSwitchInput), expected.asked.front());
            EXPECT_EQ(desktop.distributedNotifications.posted().front().name, "AskTandrelSwitchInput");
            EXPECT_TRUE(desktop.distributedNotifications.posted().front().userInfo.isNothing());
        }
    }
}

TEST_F(InputSources, AMonochromeIconStandsOnTheBoxAtEighteenPoints) {
    const struct {
        const char* what;
        ImageRef icon;
        bool enabled;
        bool iconHidden;
        bool boxHidden;
        std::optional<Size> shown;
    } cases[] = {
        {"monochrome", SimulatedImage::ofColor({32, 32}, 0, 0, 0), true, false, false, Size{18, 18}},
        {"coloured",
         std::make_shared<SimulatedImage>(Size{2, 1}, std::vector<std::uint8_t>{255, 0, 9, 0, 0, 255, 99, 0}),
         true, false, true, Size{2, 1}},
        {"missing", nullptr, true, false, true, std::nullopt},
        {"indicator off", SimulatedImage::ofColor({32, 32}, 0, 0, 0), false, true, true, std::nullopt},
    };
    auto& interface = desktop_.interfaceFiles;
    desktop_.inputSources.enable({.id = "us", .hasIconReference = true});
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.what);
        desktop_.defaults.standardUserDefaults().setBool(expected.enabled, key::enableTipOfState);
        desktop_.inputSources.icons["us"] = expected.icon;
        interface.iconView.image = nullptr;
        stateTip_.inputChnagedNotification();
        EXPECT_EQ(interface.iconView.isHidden, expected.iconHidden);
        EXPECT_EQ(interface.iconBox.isHidden, expected.boxHidden);
        EXPECT_EQ(interface.iconView.image ? std::optional(interface.iconView.image->size()) : std::nullopt,
                  expected.shown);
    }
}

TEST_F(InputSources, ABurstOfChangesRefreshesOnceAfterTheLast) {
    int refreshes = 0;
    InputChangeWatch watch(desktop_.runLoop, [&refreshes] { ++refreshes; });
    const DistributedNotification changed{std::string(selectedKeyboardInputSourceChangedNotification), {}};
    watch.inputSourceChanged(changed);
    desktop_.runLoop.advance(0.1);
    watch.inputSourceChanged(changed);
    watch.inputSourceChanged({"something else", {}});
    desktop_.runLoop.advance(0.15);
    EXPECT_EQ(refreshes, 0);
    desktop_.runLoop.advance(0.05);
    EXPECT_EQ(refreshes, 1);
    watch.inputSourceChanged(changed);
    desktop_.runLoop.advance(10);
    EXPECT_EQ(refreshes, 2);
}

} // namespace
} // namespace quorvane
