#include <vector>

#include <gmock/gmock.h>

#include "platform/GlobalEventMonitor.h"
#include "settings/InputShortcut.h"
#include "shortcuts/RecorderBehaviour.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Key = RecorderBehaviour::Key;
using Modifiers = RecorderBehaviour::Modifiers;
using State = RecorderBehaviour::State;

constexpr auto shift = ModifierFlag::shift, commandFlag = ModifierFlag::command;

Key at(std::int64_t keyCode) {
    return {static_cast<std::uint32_t>(keyCode) + 10, keyCode, RecorderBehaviour::roleOf(keyCode)};
}

const Key a = at(0), k = at(0x28), f5 = at(0x60), unknown{13, std::nullopt}, escape = at(0x35),
          space = at(0x31), remove = at(0x33), forwardDelete = at(0x75), tab = at(0x30), returnKey = at(0x24),
          enter = at(0x4c);
constexpr Modifiers bare, capsLock{ModifierFlag::capsLock}, withShift{shift},
    withCommand{commandFlag | ModifierFlag::leftCommand}, altGr{0, true}, altGrAndCommand{commandFlag, true};

PropertyList recordOf(const Key& key, std::uint64_t flags = 0) {
    return InputShortcut{*key.keyCode, static_cast<std::int64_t>(flags)}.record();
}

class RecorderBehaviourTest : public testing::Test {
protected:
    RecorderBehaviourTest() { recorder_.setRules(0x1e'0000, true); }

    bool press(const Key& key, const Modifiers& modifiers = {}) {
        return recorder_.keyDown(key, modifiers, false);
    }
    void begin() {
        recorder_.end();
        recorder_.press();
        ASSERT_EQ(recorder_.state(), State::recording);
    }

    bool hasKeyboard_ = true;
    int watches_ = 0;
    std::vector<PropertyList> told_;
    RecorderBehaviour recorder_{{.takeKeyboard = [this] { return hasKeyboard_; },
                                 .watch =
                                     [this] {
                                         ++watches_;
                                         return Subscription([this] { --watches_; });
                                     },
                                 .changed = [] {},
                                 .didEndRecording = [this] { told_.push_back(recorder_.objectValue()); },
                                 .heldModifiers = [] { return Modifiers{}; }}};
};

TEST_F(RecorderBehaviourTest, WhatEachKeyDoes) {
    using enum RecorderBehaviour::State;
    const std::vector<PropertyList> nothing, cleared{PropertyList()};
    const auto recorded = [](const Key& key, std::uint64_t flags = 0) {
        return std::vector{recordOf(key, flags)};
    };
    struct Outcome {
        bool isTaken;
        State state;
        std::vector<PropertyList> told;
    };
    const struct {
        const char* name;
        Key key;
        Modifiers modifiers;
        Outcome whileRecording, atRest;
    } cases[] = {
        {"a letter", a, bare, {true, releasing, recorded(a)}, {false, atRest, nothing}},
        {"a function key", f5, bare, {true, releasing, recorded(f5)}, {false, atRest, nothing}},
        {"a lock", k, capsLock, {true, releasing, recorded(k)}, {false, atRest, nothing}},
        {"Command", k, withCommand, {true, releasing, recorded(k, commandFlag)}, {false, atRest, nothing}},
        {"Delete", remove, bare, {true, releasing, cleared}, {true, atRest, cleared}},
        {"Escape", escape, bare, {true, releasing, nothing}, {false, atRest, nothing}},
        {"Space", space, bare, {true, releasing, nothing}, {true, recording, nothing}},
        {"Return", returnKey, bare, {true, releasing, nothing}, {true, recording, nothing}},
        {"Enter", enter, bare, {true, releasing, nothing}, {true, recording, nothing}},
        {"forward Delete", forwardDelete, bare, {true, releasing, cleared}, {true, atRest, cleared}},
        {"Tab", tab, bare, {false, atRest, nothing}, {false, atRest, nothing}},
        {"Shift Delete", remove, withShift, {true, releasing, recorded(remove, shift)}, {false, atRest, {}}},
        {"Command Escape",
         escape,
         withCommand,
         {true, releasing, recorded(escape, commandFlag)},
         {false, atRest, {}}},
        {"Shift Space", space, withShift, {true, releasing, recorded(space, shift)}, {false, atRest, {}}},
        {"Shift Tab", tab, withShift, {true, releasing, recorded(tab, shift)}, {false, atRest, {}}},
        {"no hot key's", unknown, withCommand, {true, refused, nothing}, {false, atRest, nothing}},
        {"AltGr", k, altGr, {true, refused, nothing}, {false, atRest, nothing}},
        {"AltGr Command", k, altGrAndCommand, {true, refused, nothing}, {false, atRest, nothing}},
        {"AltGr Delete", remove, altGr, {true, refused, nothing}, {false, atRest, nothing}},
    };
    for (const auto& [name, key, modifiers, whileRecording, atRest_] : cases) {
        for (const bool records : {true, false}) {
            recorder_.end();
            recorder_.setObjectValue({}, true); // a letter's, say, which is not shown
            EXPECT_TRUE(recorder_.canBeCleared()) << "whatever is shown";
            if (records) begin();
            const auto& expected = records ? whileRecording : atRest_;
            EXPECT_EQ(press(key, modifiers), expected.isTaken) << name << records;
            EXPECT_EQ(recorder_.state(), expected.state) << name << records;
            EXPECT_EQ(std::exchange(told_, {}), expected.told) << name << records;
            EXPECT_EQ(watches_, recorder_.isInUse()) << name << records;
        }
    }
}

TEST_F(RecorderBehaviourTest, HasKeysForItselfUntilTheLastOneIsReleased) {
    EXPECT_FALSE(recorder_.modifiersChanged(withCommand));
    press(space);
    EXPECT_TRUE(recorder_.keyDown(space, bare, true)) << "it is still held";
    recorder_.keyUp(space.number);
    EXPECT_TRUE(recorder_.modifiersChanged(withCommand));
    press(k, withCommand);
    EXPECT_TRUE(recorder_.keyDown(k, withCommand, true)) << "or a menu would get it";
    recorder_.keyUp(a.number);
    EXPECT_EQ(watches_, 1) << "or it would be a hot key at once";
    const std::function<void()> ends[] = {
        [&] { recorder_.keyUp(k.number); },
        [&] {
            recorder_.modifiersChanged(withShift);
            EXPECT_TRUE(recorder_.isInUse());
            recorder_.modifiersChanged(bare); // They went up first.
        },
        [&] { press(a); }, // Nobody heard of the release.
        [&] { recorder_.end(); },
    };
    for (const auto& end : ends) {
        begin();
        press(k, withCommand);
        end();
        EXPECT_EQ(watches_, 0);
    }
    EXPECT_EQ(told_.size(), 5U);
}

TEST_F(RecorderBehaviourTest, IsClearedOnceAndBeginsOnlyWithTheKeyboard) {
    recorder_.setObjectValue(recordOf(f5), true);
    for (int time = 0; time < 2; ++time)
        press(remove);
    begin();
    press(remove);
    EXPECT_THAT(told_, ElementsAre(PropertyList()));
    recorder_.end();
    hasKeyboard_ = false;
    press(space);
    recorder_.press();
    EXPECT_FALSE(recorder_.isInUse());
    recorder_.setRules(0x1e'0000, false);
    hasKeyboard_ = true;
    begin();
    press(k);
    EXPECT_EQ(recorder_.state(), State::refused) << "it allows none without modifiers";
}

TEST_F(RecorderBehaviourTest, HeldModifiersAreShownWhileItRecords) {
    using enum RecorderBehaviour::Display;
    const std::pair<std::function<void()>, RecorderBehaviour::Display> steps[] = {
        {[&] { recorder_.modifiersChanged(withShift); }, objectValue},
        {[&] { begin(); }, prompt},
        {[&] { recorder_.modifiersChanged({shift | ModifierFlag::function}); }, heldModifiers},
        {[&] { EXPECT_EQ(recorder_.heldFlags(), shift); }, heldModifiers},
        {[&] { recorder_.modifiersChanged(altGr); }, prompt},
        {[&] { press(unknown); }, refusal},
        {[&] { recorder_.modifiersChanged(bare); }, refusal},
        {[&] { recorder_.modifiersChanged(withCommand); }, heldModifiers},
        {[&] { press(unknown, withCommand); }, refusal},
        {[&] { recorder_.modifiersChanged(bare); }, refusal},
        {[&] { recorder_.end(); }, objectValue},
        {[&] { begin(); }, prompt}};
    for (const auto& [happens, display] : steps) {
        happens();
        EXPECT_EQ(recorder_.display(), display);
    }
}

} // namespace
} // namespace quorvane
