// Hot keys of a compositor that answers later, or never.

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/AskedHotKeys.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Compositor : public HotKeyBindings {
public:
    void bind(unsigned number, const KeyCombination& combination,
              std::function<void(bool isGranted)> answered) override {
        lines.push_back("bind " + std::to_string(number) + " " + std::to_string(combination.keyCode));
        answers[number] = std::move(answered);
    }
    void unbind(unsigned number, const KeyCombination& /*combination*/) override {
        lines.push_back("unbind " + std::to_string(number));
    }

    std::vector<std::string> lines;
    std::map<unsigned, std::function<void(bool)>> answers;
};

class AskedHotKeysTest : public testing::Test {
protected:
    std::optional<Subscription> add(std::int64_t keyCode) {
        return hotKeys_->registerHotKey({keyCode, ModifierFlag::control | ModifierFlag::leftControl},
                                        [this, keyCode] { fired_.push_back(keyCode); });
    }
    std::vector<std::string> asked() { return std::exchange(compositor_.lines, {}); }

    Compositor compositor_;
    std::optional<AskedHotKeys> hotKeys_{compositor_};
    std::vector<std::int64_t> fired_;
    int changes_ = 0;
    Subscription counting_ = hotKeys_->changed.connect([this] { ++changes_; });
};

TEST_F(AskedHotKeysTest, AreGrantedUntilTheCompositorRefuses) {
    auto first = add(1), second = add(2);
    EXPECT_FALSE(add(1)) << "ours already";
    EXPECT_THAT(asked(), ElementsAre("bind 0 1", "bind 1 2"));
    compositor_.answers.at(0)(true);
    EXPECT_EQ(changes_, 0);
    compositor_.pressed.emit(0);
    compositor_.pressed.emit(1); // It has not answered yet, and never may.
    EXPECT_THAT(fired_, ElementsAre(1, 2));
    compositor_.answers.at(1)(false);
    EXPECT_EQ(changes_, 1);
    compositor_.pressed.emit(1);
    EXPECT_THAT(fired_, ElementsAre(1, 2));
    EXPECT_FALSE(add(2)) << "what was refused stays so";
    second.reset();
    EXPECT_THAT(asked(), IsEmpty()) << "nobody gives back what was refused";
    compositor_.changed.emit();
    EXPECT_EQ(changes_, 2);
    EXPECT_THAT(asked(), ElementsAre("bind 0 1"));
    EXPECT_TRUE(add(2)) << "something has changed";
    EXPECT_THAT(asked(), ElementsAre("bind 2 2", "unbind 2"));
    first.reset();
    EXPECT_THAT(asked(), ElementsAre("unbind 0"));
}

TEST_F(AskedHotKeysTest, AnAnswerMayComeWhenNobodyIsThere) {
    auto first = add(1);
    hotKeys_.reset();
    EXPECT_THAT(asked(), ElementsAre("bind 0 1", "unbind 0"));
    compositor_.answers.at(0)(false);
    first.reset();
    EXPECT_THAT(asked(), IsEmpty());
}

} // namespace
} // namespace quorvane
