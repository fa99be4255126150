#include <vector>

#include <gmock/gmock.h>

#include "platform/GlobalEventMonitor.h"
#include "settings/InputShortcut.h"
#include "shortcuts/ShortcutRecording.h"

namespace quorvane {
namespace {

using Display = ShortcutRecording::Display;
using KeyPress = ShortcutRecording::KeyPress;
using Meaning = ShortcutRecording::Meaning;
using State = ShortcutRecording::State;

constexpr auto shift = ModifierFlag::shift, command = ModifierFlag::command;
constexpr std::uint32_t key = 7;

PropertyList recordOf(std::int64_t keyCode, std::uint64_t modifierFlags) {
    return InputShortcut{keyCode, static_cast<std::int64_t>(modifierFlags)}.record();
}

TEST(ShortcutRecording, EachKeyRecordsClearsLeavesItOrIsRefused) {
    const struct {
        KeyPress press;
        bool allowsEmptyModifierFlags;
        std::optional<PropertyList> recorded;
        State state;
    } cases[] = {
        {{key, 40, command | ModifierFlag::leftCommand}, false, recordOf(40, command), State::releasing},
        {{key, 40, 0}, true, recordOf(40, 0), State::releasing},
        {{key, 40, ModifierFlag::capsLock}, false, std::nullopt, State::recording},
        {{key, std::nullopt, command}, true, std::nullopt, State::recording},
        {{key, 53, 0, Meaning::leavesAsItWas}, true, std::nullopt, State::releasing},
        {{key, std::nullopt, 0, Meaning::leavesAsItWas}, false, std::nullopt, State::releasing},
        {{key, 53, shift, Meaning::leavesAsItWas}, false, recordOf(53, shift), State::releasing},
        {{key, 51, 0, Meaning::clears}, false, PropertyList(), State::releasing},
        {{key, 51, shift, Meaning::clears}, false, recordOf(51, shift), State::releasing}};
    for (const auto& [press, allowsEmpty, recorded, state] : cases) {
        ShortcutRecording recording;
        recording.setRules(shift | command, allowsEmpty);
        EXPECT_FALSE(recording.press(press)) << "before it begins";
        recording.begin(0);
        EXPECT_EQ(recording.press(press), recorded);
        EXPECT_EQ(recording.state(), state);
        EXPECT_EQ(recording.display(), state == State::recording ? Display::refusal : Display::objectValue);
        EXPECT_EQ(recording.isOverWithRelease(key), state == State::releasing);
        EXPECT_FALSE(recording.isOverWithRelease(key + 1));
    }
}

TEST(ShortcutRecording, HeldModifiersAreShownWhileItRecords) {
    ShortcutRecording recording;
    recording.setRules(shift | command, false);
    std::vector<Display> displays;
    const auto look = [&] { displays.push_back(recording.display()); };
    recording.holdModifiers(shift);
    look();
    recording.begin(shift | ModifierFlag::option);
    look();
    EXPECT_EQ(recording.heldFlags(), shift);
    recording.holdModifiers(ModifierFlag::option);
    look();
    recording.press({.key = key, .keyCode = 1});
    look();
    recording.holdModifiers(command);
    look();
    recording.end();
    look();
    using enum ShortcutRecording::Display;
    EXPECT_THAT(displays, testing::ElementsAre(objectValue, heldModifiers, prompt, refusal, heldModifiers,
                                               objectValue));
    recording.begin(0);
    EXPECT_EQ(recording.display(), prompt) << "nothing of the last time";
}

} // namespace
} // namespace quorvane
