#include <map>
#include <sstream>

#include <gmock/gmock.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Selections = std::vector<std::string>;

constexpr auto alfredId = "com.runningwithcrayons.Alfred-5";

/// A user with the rules us for everything, de for Spotlight and ru for Alfred, in front of a large window.
class LauncherWatchTest : public ProgramTest {
protected:
    LauncherWatchTest() {
        for (const auto* id : {"us", "ru", "de"})
            desktop_.inputSources.enable({.id = id});
        standard_.setObject("us", key::defaultInput);
        setRule("com.apple.Spotlight", "de");
        setRule(alfredId, "ru");
        desktop_.windowList.frontToBack = {window_};
        launch();
        desktop_.workspace.activate("front.app");
        desktop_.runLoop.advance(1);
    }

    /// Lets a story happen, word by word.
    void play(const std::string& story) {
        std::istringstream words(story);
        for (std::string word; words >> word;) {
            if (const auto* window = windowNamed(word)) {
                desktop_.windowList.frontToBack = {*window, window_};
            } else if (word == "closes") {
                desktop_.windowList.frontToBack = {window_};
            } else if (word == "running") {
                desktop_.workspace.launch(alfredId, ActivationPolicy::accessory);
            } else {
                happen(word);
            }
        }
    }

private:
    static const WindowDescription* windowNamed(const std::string& name) {
        static const std::map<std::string, WindowDescription> windows = {
            {"spotlight", {"Spotlight", "", {400, 200, 600, 60}, 23, true}},
            {"聚焦", {"聚焦", std::nullopt, {400, 200, 101, 60}, 0, true}},
            {"narrow-spotlight", {"Spotlight", "", {400, 200, 100.9, 60}, 23, true}},
            {"hidden-spotlight", {"Spotlight", "", {400, 200, 600, 60}, 23, false}},
            {"alfred", {"Alfred 5", "", {300, 300, 700, 80}, 27, true}},
            {"alfred-on-25", {"Alfred 5", "", {300, 300, 700, 80}, 25, true}},
        };
        const auto found = windows.find(name);
        return found == windows.end() ? nullptr : &found->second;
    }

    const WindowDescription window_{"front.app", "Title", {100, 50, 1000, 600}, 0, true};
};

// Command is 0x100108, control 0x40101, nothing held 0x100. The last two columns: what has been selected half
// a second later, and how many timers are armed then.
struct Episode {
    const char* what;
    const char* story;
    Selections selections;
    std::size_t armedTimers = 0;
};

std::ostream& operator<<(std::ostream& stream, const Episode& episode) {
    return stream << episode.what;
}

class Episodes : public LauncherWatchTest, public testing::WithParamInterface<Episode> {};

TEST_P(Episodes, SelectTheLaunchersSourceAndTheOneBefore) {
    play(GetParam().story);
    desktop_.runLoop.advance(0.5);
    EXPECT_EQ(selections(), GetParam().selections) << GetParam().what;
    EXPECT_EQ(desktop_.runLoop.pendingCount(), GetParam().armedTimers) << GetParam().what;
}

const Episode episodes[] = {
    {"a modifier and no launcher", "running 0x100108 0.5 0x100", {}},
    {"opened while the key is held", "0x100108 spotlight 0.1 0x100", {"de"}, 1},
    {"and closed", "0x100108 spotlight 0.1 0x100 1.0 closes", {"de", "us"}},
    {"opened just after the release", "0x100108 0.05 0x100 spotlight", {"de"}},
    {"opened too late", "0x100108 0x100 0.11 spotlight", {}},
    {"closed, but no modifier moved since", "0x100108 0.05 0x100 spotlight 1.0 closes", {"de"}},
    {"by its Chinese name", "聚焦 0x100108 0.1", {"de"}},
    {"only its item in the menu bar", "narrow-spotlight 0x100108 0.3 0x100", {}},
    {"there, but not on the screen", "hidden-spotlight 0x100108 0.3 0x100", {}},
    {"Alfred", "running 0x100108 alfred 0.1 0x100 1.0 closes", {"ru", "us"}},
    {"Alfred's window on another layer", "running alfred-on-25 0x100108 0.3 0x100", {}},
    {"a window like Alfred's, but Alfred does not run", "alfred 0x100108 0.3 0x100", {}},
    {"Caps Lock is on at the release", "0x110108 0x10100", {}},
    {"Caps Lock goes on at the release", "0x40101 0.5 0x10100", {}},
    {"the function key's flag remains", "0x100108 0x800100", {}, 1},
    {"without the bit of a real keyboard, nothing held is a press", "0x0", {}, 1},
    {"double press", "running 0x100108 0x100 0.25 alfred 0x100108 0x100 closes", {"ru", "us"}},
    {"double press, too slow", "running 0x100108 0x100 0.26 alfred 0x100108 0x100 closes", {}},
    {"two different keys", "running 0x100108 0x100 0.2 alfred 0x40101 0x100 closes", {}},
    {"double press without Alfred", "0x100108 0x100 0.2 alfred 0x100108 0x100", {}},
    {"an activation ends it", "0x100108 spotlight 0.1 0x100 other.app 0.3 closes", {"de", "us"}},
    {"and the next press begins another",
     "0x100108 spotlight 0.1 other.app 0.3 0x100108",
     {"de", "us", "de"}},
    {"what the user selects in the launcher stays",
     "running 0x100108 alfred 0.1 =us 0x40101 0.3 0x100",
     {"ru"},
     1},
    {"the companion switches", "companion 0x100108 spotlight 0.1 0x100 closes", {}},
};
INSTANTIATE_TEST_SUITE_P(Launchers, Episodes, testing::ValuesIn(episodes));

TEST_F(LauncherWatchTest, AnEpisodeThatAnActivationEndedIsDecidedOnceMoreWhenTheWindowHasGone) {
    play("0x100108 spotlight 0.1 0x100 other.app 0.5");
    desktop_.inputSources.selectFromOutside("ru");
    play("1.0");
    EXPECT_EQ(selections(), (Selections{"de", "us"}));
    play("closes 0.5");
    EXPECT_EQ(selections(), (Selections{"de", "us", "us"}));
}

TEST_F(LauncherWatchTest, TheApplicationInFrontCountsWhenNoneWasEverActivated) {
    setRule("front.app", "ru");
    setRule(alfredId, "de");
    launch();
    play("running 0x100108 0x100 alfred 0x100108 0x100 closes 1.0");
    EXPECT_EQ(selections(), (Selections{"de", "ru"}));
}

TEST_F(LauncherWatchTest, TheIndicatorGoesToTheLauncherAndBack) {
    standard_.setBool(true, key::enableTipOfState);
    standard_.setBool(true, key::followWindow);
    constexpr Point atWindow{1078, 828}, atSpotlight{978, 678};
    play("front.app 0x100108 spotlight 0.1");
    EXPECT_EQ(indicatorOrigin(), atWindow) << "it waits a tenth of a second";
    play("0.1");
    EXPECT_EQ(indicatorOrigin(), atSpotlight);
    desktop_.globalEvents.send({.type = EventType::leftMouseUp});
    EXPECT_EQ(indicatorOrigin(), atSpotlight);
    play("0x100 closes 0.2");
    EXPECT_EQ(indicatorOrigin(), atWindow);
}

} // namespace
} // namespace quorvane
