#include <sstream>

#include <gtest/gtest.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

constexpr Rect launcherBounds{300, 200, 700, 80};

/// A user in front of a large window on a desktop that tells of launchers and takes an input source at once.
class LauncherNewsTest : public ProgramTest {
protected:
    LauncherNewsTest() {
        auto& facts = desktop_.desktop.facts;
        facts.switchDelay = 0;
        facts.screenChangeDelay = 0;
        facts.launchers = {
            .areTold = true, .identifiers = {"rofi", "dmenu"}, .identifierPrefixes = {}, .formerPrefix = {}};
        for (const auto* id : {"us", "ru", "de", "fr"})
            desktop_.inputSources.enable({.id = id});
        standard_.setObject("fr", key::defaultInput);
        for (const auto& [application, source] :
             {std::pair{"front.app", "us"}, {"other.app", "de"}, {"rofi", "ru"}, {"dmenu", "de"}})
            setRule(application, source);
        desktop_.windowList.frontToBack = {{"front.app", "Title", {100, 50, 1000, 600}, 0, true}};
        launch();
        desktop_.workspace.activate("front.app");
    }

    /// Lets a story happen, word by word, and returns the words with the sources that were selected
    /// meanwhile.
    std::string play(const std::string& story) {
        std::istringstream words(story);
        std::string told;
        for (std::string word; words >> word;) {
            const auto before = selections().size();
            happen(word);
            for (auto i = before; i < selections().size(); ++i)
                told.append(told.empty() ? "" : " ").append(word).append(":").append(selections()[i]);
        }
        return told;
    }

    void happen(const std::string& word) {
        if (word == "rofi" || word == "dmenu") {
            desktop_.windowList.tellLauncher(OpenLauncher{word, launcherBounds});
        } else if (word == "closes") {
            desktop_.windowList.tellLauncher(std::nullopt);
        } else if (word == "restart") {
            launch();
        } else if (word == "hotkey") {
            program_->changeInputTo("fr");
        } else {
            ProgramTest::happen(word);
        }
    }
};

struct Told {
    const char* what;
    const char* story;
    const char* selections;
};

std::ostream& operator<<(std::ostream& stream, const Told& told) {
    return stream << told.what;
}

class Stories : public LauncherNewsTest, public testing::WithParamInterface<Told> {};

TEST_P(Stories, SelectTheLaunchersSourceAndTheOneBefore) {
    EXPECT_EQ(play(std::string(GetParam().story) + " 1"), GetParam().selections) << GetParam().what;
    EXPECT_EQ(desktop_.runLoop.pendingCount(), 0U) << GetParam().what;
    EXPECT_FALSE(desktop_.globalEvents.isWatching(EventType::flagsChanged));
}

const Told stories[] = {
    {"opened and closed", "rofi 1 closes 1", "rofi:ru closes:us"},
    {"by a double press, with the key held on", "0x100108 0x100 0.1 0x100108 rofi 0.3 0x100 0.3 closes 0.3",
     "rofi:ru closes:us"},
    {"what the user selects in the launcher stays", "0x40101 rofi =de 0.3 0x100 0x40101 0.3 0x100 closes",
     "rofi:ru closes:us"},
    {"another one takes its place", "rofi dmenu closes", "rofi:ru dmenu:de closes:us"},
    {"an activation ends it", "rofi other.app closes 1", "rofi:ru other.app:de"},
    {"and what is selected after that stays", "rofi other.app =us closes 1", "rofi:ru other.app:de"},
    {"closed, and closed again", "closes rofi closes =fr closes", "rofi:ru closes:us"},
    {"before any activation", "restart rofi closes", "rofi:ru closes:us"},
    {"a hot key does nothing in a launcher", "rofi hotkey closes hotkey", "rofi:ru closes:us hotkey:fr"},
    {"the companion switches", "companion rofi closes", ""},
};
INSTANTIATE_TEST_SUITE_P(Launchers, Stories, testing::ValuesIn(stories));

TEST_F(LauncherNewsTest, TheIndicatorGoesThereAndBackAtOnceAndWatchesTheMouseOnlyWhileItFollows) {
    const auto isWatching = [&] { return desktop_.globalEvents.isWatching(EventType::leftMouseUp); };
    constexpr Point atWindow{1078, 828}, atLauncher{978, 678};
    standard_.setBool(true, key::followWindow);
    EXPECT_FALSE(isWatching());
    standard_.setBool(true, key::enableTipOfState);
    EXPECT_TRUE(isWatching());
    desktop_.globalEvents.send({.type = EventType::leftMouseUp});
    EXPECT_EQ(indicatorOrigin(), atWindow);
    happen("rofi");
    EXPECT_EQ(indicatorOrigin(), atLauncher);
    desktop_.globalEvents.send({.type = EventType::leftMouseUp});
    EXPECT_EQ(indicatorOrigin(), atLauncher);
    happen("closes");
    EXPECT_EQ(indicatorOrigin(), atWindow);
    desktop_.windowList.frontToBack.front().bounds.x += 50;
    desktop_.windowList.tellFrontWindowMoved();
    EXPECT_EQ(indicatorOrigin(), (Point{1128, 828}));
    standard_.setBool(false, key::followWindow);
    EXPECT_FALSE(isWatching());
}

} // namespace
} // namespace quorvane
