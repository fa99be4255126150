#pragma once

#include <utility>

#include "contracts/Contract.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/HotKeys.h"

namespace quorvane {

class HotKeysBench : public ContractBench {
public:
    virtual HotKeys& hotKeys() = 0;

    /// Down and up again, modifiers included. Caps Lock among them is on meanwhile.
    virtual void press(const KeyCombination& combination) = 0;
    virtual void takeFromOutside(const KeyCombination& combination) = 0;
};

class HotKeysContract : public Contract<HotKeysBench> {
protected:
    std::optional<Subscription> add(const KeyCombination& combination, std::string name) {
        return hotKeys_.registerHotKey(combination,
                                       [this, name = std::move(name)] { fired_.push_back(name); });
    }
    /// What fires when this is pressed.
    std::vector<std::string> fired(const KeyCombination& combination) {
        bench_->press(combination);
        bench_->press(f5);
        EXPECT_TRUE(waitUntil([&] { return !fired_.empty() && fired_.back() == "end"; }));
        if (!fired_.empty()) fired_.pop_back();
        return std::exchange(fired_, {});
    }

    /// At once, or when the desktop has answered.
    bool isRefused(const KeyCombination& combination) {
        bool isToldOfChange = false;
        const auto change = hotKeys_.changed.connect([&] { isToldOfChange = true; });
        auto granted = add(combination, "refused");
        if (!granted) return true;
        if (!waitUntil([&] { return isToldOfChange; })) return false;
        granted->end();
        return !add(combination, "refused");
    }

    static constexpr auto capsLock = ModifierFlag::capsLock, shift = ModifierFlag::shift,
                          control = ModifierFlag::control, option = ModifierFlag::option,
                          command = ModifierFlag::command;
    static constexpr std::int64_t j = 0x26, k = 0x28;
    static constexpr KeyCombination f5{0x60, 0}, controlOptionK{k, control | option}, controlJ{j, control};
    HotKeys& hotKeys_ = bench_->hotKeys();
    std::vector<std::string> fired_;
    std::optional<Subscription> end_ = add(f5, "end");
};

TEST_P(HotKeysContract, FireForTheKeyWithJustTheirModifiers) {
    const auto first = add({k, control | option | ModifierFlag::leftOption}, "first");
    const auto second = add({k, control | option | shift}, "second");
    const auto third = add({j, command}, "third");
    const std::pair<KeyCombination, std::vector<std::string>> cases[] = {
        {{k, control | option}, {"first"}},
        {{k, control | option | capsLock}, {"first"}},
        {{k, control | option | shift}, {"second"}},
        {{k, control | option | shift | command}, {}},
        {{k, control}, {}},
        {{k, command}, {}},
        {{j, control | option}, {}},
        {{j, 0}, {}},
        {{j, command}, {"third"}}};
    for (const auto& [combination, expected] : cases)
        EXPECT_EQ(fired(combination), expected) << combination.keyCode << ' ' << combination.modifierFlags;
}

TEST_P(HotKeysContract, RefuseWhatSomebodyHasAndWhatIsNoKey) {
    auto first = add(controlOptionK, "first");
    bench_->takeFromOutside(controlJ);
    for (const auto& refused :
         {controlOptionK, {k, control | option | capsLock}, controlJ, {-1, 0}, {4096, 0}})
        EXPECT_TRUE(isRefused(refused)) << refused.keyCode;
    EXPECT_THAT(fired(controlOptionK), testing::ElementsAre("first"));
    first->end();
    EXPECT_THAT(fired(controlOptionK), testing::IsEmpty());
    first = add(controlOptionK, "again");
    EXPECT_THAT(fired(controlOptionK), testing::ElementsAre("again"));
}

TEST_P(HotKeysContract, HandlersMayEndRegistrationsAndMakeOthers) {
    std::optional<Subscription> mine, next, other = add(controlJ, "other");
    mine = hotKeys_.registerHotKey(controlOptionK, [&] {
        mine->end();
        other->end();
        next = add(controlOptionK, "next");
    });
    for (const auto& silent : {controlOptionK, controlJ})
        EXPECT_THAT(fired(silent), testing::IsEmpty());
    EXPECT_THAT(fired(controlOptionK), testing::ElementsAre("next"));
}

} // namespace quorvane
