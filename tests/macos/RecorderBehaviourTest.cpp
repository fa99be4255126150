#include <gmock/gmock.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/macos/recorder/RecorderBehaviour.h"
#include "settings/InputShortcut.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

constexpr unsigned short a = 0x00, k = 0x28, returnKey = 0x24, space = 0x31, deleteKey = 0x33, escape = 0x35;
constexpr auto command = ModifierFlag::command;

class RecorderBehaviourTest : public testing::Test {
protected:
    RecorderBehaviourTest() {
        recorder_.setRules(0x1e'0000, true);
        recorder_.setObjectValue(before_);
    }
    bool press(unsigned short key, std::uint64_t flags = 0) { return recorder_.keyDown(key, flags, false); }

    const PropertyList before_ = InputShortcut{1, 0x2'0000}.record();
    const PropertyList commandK_ = InputShortcut{k, command}.record();
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
                                 .heldFlags = [] { return std::uint64_t{0}; }}};
};

TEST_F(RecorderBehaviourTest, HasKeysForItselfOnlyWhileItRecords) {
    EXPECT_FALSE(press(k, command));
    EXPECT_FALSE(press(a));
    EXPECT_FALSE(press(space, command));
    EXPECT_FALSE(recorder_.flagsChanged(command));
    EXPECT_TRUE(press(space));
    EXPECT_EQ(watches_, 1);
    EXPECT_TRUE(recorder_.keyDown(space, 0, true)) << "it is still held";
    recorder_.keyUp(space);
    EXPECT_TRUE(recorder_.flagsChanged(command));
    EXPECT_TRUE(press(k, command));
    EXPECT_THAT(told_, ElementsAre(commandK_));
    EXPECT_TRUE(recorder_.keyDown(k, command, true)) << "or a menu would get it";
    EXPECT_EQ(watches_, 1) << "or it would be a hot key at once";
    recorder_.keyUp(k);
    EXPECT_EQ(watches_, 0);
    EXPECT_FALSE(press(k, command));
    EXPECT_EQ(told_.size(), 1U);
}

TEST_F(RecorderBehaviourTest, EndsInManyWays) {
    const auto click = [this] { recorder_.press(); };
    const struct {
        const char* name;
        std::function<void()> end;
        std::vector<PropertyList> told;
    } cases[] = {{"click", click, {}},
                 {"Escape", [&] { press(escape), recorder_.keyUp(escape); }, {}},
                 {"Delete", [&] { press(deleteKey), recorder_.keyUp(deleteKey); }, {PropertyList()}},
                 {"focus", [&] { recorder_.end(); }, {}},
                 {"focus, the key still held", [&] { press(k, command), recorder_.end(); }, {commandK_}},
                 {"its modifiers go up first",
                  [&] {
                      press(k, command);
                      recorder_.flagsChanged(command);
                      EXPECT_TRUE(recorder_.isInUse());
                      recorder_.flagsChanged(0);
                  },
                  {commandK_}},
                 {"nobody hears of the release", [&] { press(k, command), press(a); }, {commandK_}},
                 {"twice", [&] { press(a), click(), click(); }, {InputShortcut{a, 0}.record()}}};
    for (const auto& [name, end, told] : cases) {
        recorder_.setObjectValue(before_);
        click();
        recorder_.clear();
        EXPECT_EQ(watches_, 1);
        end();
        EXPECT_EQ(watches_, 0) << name;
        EXPECT_FALSE(recorder_.isInUse()) << name;
        EXPECT_EQ(std::exchange(told_, {}), told) << name;
        EXPECT_EQ(recorder_.objectValue(), told.empty() ? before_ : told.back()) << name;
    }
}

TEST_F(RecorderBehaviourTest, IsClearedOnceAndBeginsOnlyWithTheKeyboard) {
    press(deleteKey);
    press(deleteKey);
    EXPECT_THAT(told_, ElementsAre(PropertyList()));
    hasKeyboard_ = false;
    for (const auto key : {space, returnKey})
        press(key);
    recorder_.press();
    EXPECT_FALSE(recorder_.isInUse());
    EXPECT_EQ(watches_, 0);
}

} // namespace
} // namespace quorvane
