#include <gmock/gmock.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Dictionary = PropertyList::Dictionary;

constexpr std::int64_t command = 0x100000;

PropertyList record(PropertyList keyCode, PropertyList modifierFlags = command) {
    return Dictionary{{"keyCode", std::move(keyCode)}, {"modifierFlags", std::move(modifierFlags)}};
}

class InputHotKeys : public ProgramTest {
protected:
    InputHotKeys() {
        for (const auto* id : {"us", "ru", "de"})
            desktop_.inputSources.enable({.id = id});
    }
    bool press(std::int64_t keyCode) { return desktop_.hotKeys.press({keyCode, command}); }
};

TEST_F(InputHotKeys, EachSelectsItsOwnSource) {
    standard_.setObject(Dictionary{{"ru", record(1)}, {"de", record(2)}, {"gone", record(3)}},
                        key::shortcutOfInput);
    launch();
    EXPECT_TRUE(press(1));
    EXPECT_TRUE(press(2));
    EXPECT_TRUE(press(2)) << "it is the current one already";
    EXPECT_EQ(desktop_.inputSources.currentID(), "de");
    EXPECT_TRUE(press(3)) << "its source may come back";
    EXPECT_THAT(selections(), ElementsAre("ru", "de"));
    EXPECT_EQ(openSharedDefaults(desktop_.defaults)->integerForKey(key::switchTimes), 3);
}

TEST_F(InputHotKeys, WhatIsNoRecordOrIsRefusedIsPassedOver) {
    desktop_.hotKeys.takeFromOutside({1, command});
    const PropertyList shortcuts[] = {{},
                                      Dictionary{},
                                      "no dictionary",
                                      Dictionary{{"a", record(1)}, // another program's
                                                 {"b", "no record"},
                                                 {"c", record({}, {})},
                                                 {"d", Dictionary{{"modifierFlags", -1}}},
                                                 {"e", record(4711)},
                                                 {"f", record(-1)},
                                                 {"g", record(9.0, double(command))},
                                                 {"h", record("8")},
                                                 {"i", record({})},
                                                 {"j", record(7, {})}}};
    for (const auto& stored : shortcuts) {
        standard_.setObject(stored, key::shortcutOfInput);
        launch();
        EXPECT_EQ(desktop_.hotKeys.count(), 1U + (stored["g"].isNothing() ? 0 : 4));
    }
    EXPECT_FALSE(press(1));
    for (const auto keyCode : {9, 8, 0})
        EXPECT_TRUE(press(keyCode)) << keyCode;
    EXPECT_TRUE(desktop_.hotKeys.press({7, 0}));
    EXPECT_FALSE(desktop_.hotKeys.press({0, 0})) << "or nobody could type an A";
}

TEST_F(InputHotKeys, AnotherCombinationTakesThePlaceOfTheOldOneAtOnce) {
    PTHotKeyCenter center(desktop_.hotKeys);
    const auto recorded = [&](const char* id, std::int64_t keyCode) {
        return PTHotKey::hotKeyWithIdentifier(id, record(keyCode), [&](const PTHotKey& hotKey) {
            desktop_.inputSources.selectFromOutside(hotKey.identifier());
            center.unregisterHotKey(hotKey); // while it fires
        });
    };
    EXPECT_TRUE(center.registerHotKey(recorded("ru", 1)));
    EXPECT_TRUE(center.registerHotKey(recorded("ru", 2)));
    EXPECT_EQ(center.hotKeyWithIdentifier("ru")->keyCombo(), record(2));
    EXPECT_FALSE(press(1));
    EXPECT_TRUE(press(2));
    EXPECT_EQ(desktop_.inputSources.currentID(), "ru");
    EXPECT_FALSE(press(2));
    EXPECT_EQ(desktop_.hotKeys.count(), 0U);
}

TEST_F(InputHotKeys, ThoseThatAreRefusedAreTriedAgain) {
    PTHotKeyCenter center(desktop_.hotKeys);
    std::vector<std::string> fired;
    int news = 0;
    const auto connection = center.refusalsChanged.connect([&] { ++news; });
    const auto add = [&](const char* id, std::int64_t keyCode) {
        return center.registerHotKey(PTHotKey::hotKeyWithIdentifier(
            id, record(keyCode), [&](const PTHotKey& hotKey) { fired.push_back(hotKey.identifier()); }));
    };
    const auto expectFires = [&](std::int64_t keyCode, const std::string& id) {
        press(keyCode);
        EXPECT_EQ(std::exchange(fired, {}), id.empty() ? std::vector<std::string>{} : std::vector{id});
        EXPECT_FALSE(center.isRefused(id));
    };
    EXPECT_TRUE(add("us", 1));
    EXPECT_FALSE(add("ru", 1)) << "taken, by ourselves";
    EXPECT_TRUE(center.isRefused("ru"));
    EXPECT_TRUE(add("us", 1)) << "recorded anew, it keeps it";
    expectFires(1, "us");
    EXPECT_TRUE(add("us", 2)) << "moved elsewhere";
    expectFires(1, "ru");
    center.unregisterHotKey(*center.hotKeyWithIdentifier("us"));
    EXPECT_FALSE(center.isRefused("us"));
    desktop_.hotKeys.takeFromOutside({3, command});
    EXPECT_FALSE(add("de", 3));
    EXPECT_EQ(news, 0) << "who registers is told by the answer";
    desktop_.hotKeys.giveBackFromOutside({3, command});
    expectFires(3, "de");
    expectFires(1, "ru");
    EXPECT_EQ(news, 1);
    center.unregisterHotKey(*center.hotKeyWithIdentifier("ru"));
    expectFires(1, "");
    EXPECT_EQ(desktop_.hotKeys.count(), 1U);
}

TEST_F(InputHotKeys, DoNothingWhileALauncherIsInFront) {
    standard_.setObject(Dictionary{{"ru", record(1)}}, key::shortcutOfInput);
    launch();
    desktop_.workspace.activate("com.runningwithcrayons.Alfred-5");
    EXPECT_TRUE(press(1));
    EXPECT_THAT(selections(), IsEmpty());
}

} // namespace
} // namespace quorvane
