#include <gtest/gtest.h>

#include "shortcuts/InputHotKeys.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

constexpr std::int64_t commandKey = 0x100000;

PropertyList record(PropertyList keyCode, PropertyList modifierFlags = commandKey) {
    return Dictionary{{"keyCode", std::move(keyCode)}, {"modifierFlags", std::move(modifierFlags)}};
}

/// Command and the key 1 is for ru, 2 for de, 3 for a source that is not there.
class InputHotKeys : public ProgramTest, public testing::WithParamInterface<Story> {
protected:
    InputHotKeys() {
        standard_.setObject(Dictionary{{"ru", record(1)}, {"de", record(2)}, {"gone", record(3)}},
                            key::shortcutOfInput);
    }
};

TEST_P(InputHotKeys, Follow) {
    EXPECT_EQ(play(GetParam().happens), GetParam().follows) << GetParam().what;
}

const std::string toRu = switchTo("ru");

const Story presses[] = {
    {"each selects its own source", "press:1 1 press:2", {"0 " + toRu, "1 " + switchTo("de", "ru", 2)}},
    {"the current one's", "=ru press:1", {}},
    {"its source may come back",
     "press:3",
     {"0 suite SwitchTimes = 1; keep us; list gone; window in; window out"}},
    {"nobody's key", "press:4", {}},
    {"in Spotlight", "front:com.apple.Spotlight 1 =us | press:1", {}},
    {"in Alfred", "launch front:com.runningwithcrayons.Alfred-3 1 =us | press:1", {}},
    {"in what is only named like Spotlight",
     "launch front:com.apple.Spotlight.helper | press:1",
     {"0 " + toRu}},
    {"with nobody in front", "launch | press:1", {"0 " + toRu}},
    {"the companion is asked",
     "companion press:1",
     {"0 suite AskTandrelSwitchInput = 'ru'; post AskTandrelSwitchInput"}},
    {"but not for what is current", "companion =ru press:1", {}},
    {"nor behind a launcher", "launch companion front:com.apple.Spotlight | press:1", {}},
    {"asked twice while the request cannot be read, it hears the last one",
     "companion writable:false press:2 press:1 writable:true",
     {"0 suite AskTandrelSwitchInput = 'de'; suite AskTandrelSwitchInput = 'ru'; post "
      "AskTandrelSwitchInput"}},
    {"and nothing once the source is current",
     "companion writable:false press:2 =ru press:1 writable:true",
     {"0 suite AskTandrelSwitchInput = 'de'"}},
    {"without any source current", "= press:1", {"0 " + switchTo("ru", "")}},
};
INSTANTIATE_TEST_SUITE_P(HotKeys, InputHotKeys, testing::ValuesIn(presses));

TEST_F(ProgramTest, WhatIsNoRecordIsPassedOverAndARefusedOneKept) {
    desktop_.hotKeys.takeFromOutside({1, commandKey});
    const std::pair<PropertyList, Lines> cases[] = {
        {{}, {}},
        {Dictionary{}, {}},
        {"no dictionary", {}},
        {Dictionary{{"a", record(1)}, // another program's
                    {"b", "no record"},
                    {"c", record({}, {})},
                    {"d", Dictionary{{"modifierFlags", -1}}},
                    {"e", record(4711)},
                    {"f", record(-1)},
                    {"g", record(9.0, double(commandKey))},
                    {"h", record("8")},
                    {"i", record({})},
                    {"j", record(7, {})}},
         {"0 register 1 0x100000, refused; register 4711 0x100000, refused; register -1 0x100000, refused; "
          "register 9 0x100000; register 8 0x100000; register 0 0x100000; register 7 0x0"}},
    };
    for (const auto& [stored, lines] : cases) {
        standard_.setObject(stored, key::shortcutOfInput);
        PTHotKeyCenter center(desktop_.hotKeys);
        desktop_.journal.take();
        registerAllHotKey(standard_, center, {});
        EXPECT_EQ(desktop_.journal.take(), lines);
    }
}

TEST_F(ProgramTest, AHotKeyMayEndItselfWhileItFires) {
    PTHotKeyCenter center(desktop_.hotKeys);
    EXPECT_EQ(PTHotKeyCenter::sharedCenter(), &center);
    center.registerHotKey(PTHotKey::hotKeyWithIdentifier("ru", record(1), [&](const PTHotKey& hotKey) {
        EXPECT_EQ(hotKey.identifier(), "ru");
        center.unregisterHotKey(hotKey);
    }));
    EXPECT_EQ(play("| press:1 press:1"), Lines{"0 unregister 1 0x100000"});
}

TEST_F(ProgramTest, RefusedHotKeysAreTriedAgain) {
    PTHotKeyCenter center(desktop_.hotKeys);
    const auto connection = center.refusalsChanged.connect([&] { desktop_.journal.add("news"); });
    const auto add = [&](const char* id, std::int64_t keyCode) {
        return [&center, id, hotKey = PTHotKey::hotKeyWithIdentifier(id, record(keyCode), {})] {
            const bool isRegistered = center.registerHotKey(hotKey);
            EXPECT_NE(isRegistered, center.isRefused(id));
        };
    };
    const auto remove = [&](const char* id) {
        return [&center, id] { center.unregisterHotKey(*center.hotKeyWithIdentifier(id)); };
    };
    const struct {
        const char* what;
        std::function<void()> happens;
        Lines follows;
    } steps[] = {
        {"", add("us", 1), {"0 register 1 0x100000"}},
        {"taken, by ourselves", add("ru", 1), {"0 register 1 0x100000, refused"}},
        {"recorded anew, it keeps it",
         add("us", 1),
         {"0 unregister 1 0x100000; register 1 0x100000; register 1 0x100000, refused"}},
        {"moved elsewhere",
         add("us", 2),
         {"0 unregister 1 0x100000; register 2 0x100000; register 1 0x100000"}},
        {"cleared", remove("us"), {"0 unregister 2 0x100000"}},
        {"another program has it",
         [&] {
             desktop_.hotKeys.takeFromOutside({3, commandKey});
             add("de", 3)();
         },
         {"0 register 3 0x100000, refused"}},
        {"and gives it back: all are registered anew",
         [&] {
             desktop_.hotKeys.giveBackFromOutside({3, commandKey});
         },
         {"0 register 3 0x100000; unregister 1 0x100000; register 1 0x100000; news"}},
        {"which is no news the next time",
         [&] { desktop_.hotKeys.changed.emit(); },
         {"0 unregister 3 0x100000; register 3 0x100000; unregister 1 0x100000; register 1 0x100000"}},
    };
    desktop_.journal.take();
    for (const auto& [what, happens, follows] : steps) {
        happens();
        EXPECT_EQ(desktop_.journal.take(), follows) << what;
    }
    EXPECT_EQ(center.hotKeyWithIdentifier("us"), nullptr);
    EXPECT_FALSE(center.isRefused("us"));
    EXPECT_EQ(center.hotKeyWithIdentifier("de")->keyCombo(), record(3));
}

} // namespace
} // namespace quorvane
