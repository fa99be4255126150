// The contracts of the ports, and what they leave open, on the services of macOS over stand-ins for Apple's
// libraries.

#include <algorithm>
#include <thread>

#include "contracts/HotKeysContract.h"
#include "contracts/TextInputSourcesContract.h"
#include "macos/standins/StandIns.h"
#include "platform/macos/CFRef.h"
#include "platform/macos/CFValues.h"
#include "platform/macos/input/TISInputSources.h"
#include "platform/macos/keyboard/CarbonHotKeys.h"
#include "platform/macos/recorder/KeyNames.h"
#include "platform/macos/windows/CGWindowList.h"
#include "platform/simulated/SimulatedImage.h"

namespace quorvane {
namespace {

using standins::FreshSystem;
using standins::system;
using Dictionary = PropertyList::Dictionary;
using testing::ElementsAre;
using testing::IsEmpty;

template <class Bench>
struct MacBench : Bench, FreshSystem {
    bool waitUntil(const std::function<bool()>& condition) override { return condition(); }
};

class MacInputSourcesBench : public MacBench<TextInputSourcesBench> {
public:
    MacInputSourcesBench() {
        for (const auto* id : {"xkb:us", "xkb:ru", "xkb:de:neo", "xkb:nosuch"})
            system().sources.push_back({{"TISPropertyInputSourceID", id},
                                        {"TISPropertyInputSourceCategory", "TISCategoryKeyboardInputSource"},
                                        {"TISPropertyInputSourceIsSelectCapable", true},
                                        {"TISPropertyLocalizedName", std::string("name of ") + id}});
        disable("xkb:nosuch");
    }
    TextInputSources& sources() override { return sources_; }
    int changesTold() const override { return system().selectionsTold; }
    void selectFromOutside(const std::string& id) override { system().select(id); }
    void disable(const std::string& id) override {
        auto& sources = system().sources;
        const auto disabled = std::ranges::find_if(
            sources, [&](Dictionary& each) { return each["TISPropertyInputSourceID"] == id; });
        system().installedSources.push_back(std::move(*disabled));
        sources.erase(disabled);
        if (system().selectedID == id) system().select(*sources[0]["TISPropertyInputSourceID"].string());
    }

private:
    TISInputSources sources_{{}};
};

class MacHotKeysBench : public MacBench<HotKeysBench> {
public:
    HotKeys& hotKeys() override { return hotKeys_; }
    void press(const KeyCombination& combination) override {
        system().press(static_cast<UInt32>(combination.keyCode), modifiersOf(combination));
    }
    void takeFromOutside(const KeyCombination& combination) override {
        system().combinationsOfOthers[standins::System::combination(static_cast<UInt32>(combination.keyCode),
                                                                    modifiersOf(combination))] = true;
    }

private:
    static UInt32 modifiersOf(const KeyCombination& combination) {
        const auto pick = [&](std::uint64_t flag, UInt32 modifier) {
            return combination.modifierFlags & flag ? modifier : 0;
        };
        return pick(ModifierFlag::capsLock, alphaLock) | pick(ModifierFlag::shift, shiftKey) |
               pick(ModifierFlag::control, controlKey) | pick(ModifierFlag::option, optionKey) |
               pick(ModifierFlag::command, cmdKey);
    }
    CarbonHotKeys hotKeys_;
};

template <class Bench>
auto mac() {
    return testing::Values([] { return std::make_unique<Bench>(); });
}

INSTANTIATE_TEST_SUITE_P(Mac, HotKeysContract, mac<MacHotKeysBench>());
INSTANTIATE_TEST_SUITE_P(Mac, TextInputSourcesContract, mac<MacInputSourcesBench>());

struct MacServices : testing::Test, FreshSystem {};

TEST_F(MacServices, InputSourcesAreDescribedAsFarAsTheSystemTells) {
    constexpr auto other = InputSourceCategory::other;
    const std::pair<Dictionary, InputSource> cases[] = {
        {{{"TISPropertyInputSourceID", "a"},
          {"TISPropertyInputSourceCategory", "TISCategoryKeyboardInputSource"},
          {"TISPropertyInputSourceIsSelectCapable", true},
          {"TISPropertyIconRef", true},
          {"TISPropertyIconImageURL", "file:///a.png"}},
         {.id = "a", .hasIconReference = true, .iconImageURL = "file:///a.png"}},
        {{{"TISPropertyInputSourceID", "b"},
          {"TISPropertyInputSourceCategory", "TISCategoryPaletteInputSource"},
          {"TISPropertyInputSourceIsSelectCapable", false}},
         {.id = "b", .category = other, .isSelectCapable = false}},
        {{{"TISPropertyInputSourceID", "c"}}, {.id = "c", .category = other, .isSelectCapable = false}}};
    const auto drawing = SimulatedImage::ofColor({}, 0, 0, 0);
    TISInputSources sources([&](IconRef icon) { return icon == standins::icon ? drawing : nullptr; });
    system().sources.push_back({{"TISPropertyLocalizedName", "has no id"}});
    std::vector<InputSource> expected;
    for (const auto& [facts, source] : cases) {
        system().sources.push_back(facts);
        expected.push_back(source);
    }
    EXPECT_EQ(sources.createInputSourceList(), expected);
    EXPECT_EQ(sources.localizedName(expected[0]), "a") << "where there is no name";
    EXPECT_EQ(sources.iconOfReference(expected[0]), drawing);
    EXPECT_EQ(sources.iconOfReference(expected[1]), nullptr);
    EXPECT_FALSE(sources.selectInputSource(expected[1]));
    for (const bool isNull : {false, true}) {
        system() = {.emptyListsAreNull = isNull};
        EXPECT_THAT(sources.createInputSourceList(), IsEmpty());
        for (const auto* id : {"a", "", "no UTF-8: \xff"}) {
            EXPECT_THAT(sources.createInputSourceList(id), IsEmpty());
            EXPECT_FALSE(sources.selectInputSource({.id = id}));
            EXPECT_EQ(sources.localizedName({.id = id}), id);
            EXPECT_EQ(sources.iconOfReference({.id = id}), nullptr);
        }
        EXPECT_FALSE(sources.copyCurrentKeyboardInputSource());
        EXPECT_FALSE(sources.copyCurrentKeyboardLayoutInputSource());
    }
}

TEST_F(MacServices, WindowsAreDescribedAsFarAsTheSystemTells) {
    const Dictionary bounds{{"X", 100}, {"Y", 120.5}, {"Width", 300}, {"Height", 200}};
    system().windows = {{{"kCGWindowIsOnscreen", true},
                         {"kCGWindowOwnerName", "Alpha"},
                         {"kCGWindowName", "Übung"},
                         {"kCGWindowBounds", bounds},
                         {"kCGWindowLayer", 101}},
                        {{"kCGWindowOwnerName", "not on the screen"}},
                        {{"kCGWindowIsOnscreen", 1},
                         {"kCGWindowOwnerName", 1},
                         {"kCGWindowName", Dictionary{}},
                         {"kCGWindowBounds", "{{0, 0}, {1, 1}}"},
                         {"kCGWindowLayer", "1"}},
                        {{"kCGWindowIsOnscreen", true},
                         {"kCGWindowName", ""},
                         {"kCGWindowBounds", Dictionary{{"X", 1}}},
                         {"kCGWindowLayer", 0.5}},
                        {{"kCGWindowIsOnscreen", true}, {"kCGWindowLayer", -2147483601.0}}};
    const CGWindowList list;
    EXPECT_THAT(list.windows(),
                ElementsAre(WindowDescription{"Alpha", "Übung", {100, 120.5, 300, 200}, 101, true},
                            WindowDescription{.isOnScreen = true},
                            WindowDescription{.name = "", .isOnScreen = true},
                            WindowDescription{.layer = -2147483601, .isOnScreen = true}));
    system().hasWindowServer = false;
    EXPECT_THAT(list.windows(), IsEmpty());
}

TEST_F(MacServices, HotKeysEndWithTheirOwner) {
    constexpr KeyCombination combination{0x28, ModifierFlag::command};
    auto hotKeys = std::make_unique<CarbonHotKeys>();
    auto outlives = hotKeys->registerHotKey(combination, [] {});
    hotKeys.reset();
    outlives->end();
    system().installsHandlers = false;
    EXPECT_FALSE(CarbonHotKeys().registerHotKey(combination, [] {}));
}

TEST_F(MacServices, HotKeysRestWhileTheyAreSuspended) {
    constexpr KeyCombination early{0x28, 0}, late{0x26, 0}, ended{0x25, 0}, taken{0x60, 0};
    CarbonHotKeys hotKeys;
    std::vector<std::int64_t> fired;
    const auto add = [&](const KeyCombination& combination) {
        return hotKeys.registerHotKey(combination,
                                      [&, combination] { fired.push_back(combination.keyCode); });
    };
    const auto firedOfAll = [&] {
        for (const auto& each : {early, late, ended, taken})
            system().press(static_cast<UInt32>(each.keyCode), 0);
        return std::exchange(fired, {});
    };
    const auto first = add(early);
    auto second = add(ended);
    int changes = 0;
    const auto changed = hotKeys.changed.connect([&] { ++changes; });
    auto outer = hotKeys.suspend();
    auto inner = hotKeys.suspend();
    EXPECT_FALSE(add(early)) << "this program has it, though the system does not know";
    const auto third = add(late);
    const auto fourth = add(taken);
    system().combinationsOfOthers = {{standins::System::combination(0x60, 0), true}};
    EXPECT_FALSE(add({0x60, ModifierFlag::capsLock}));
    second->end();
    EXPECT_THAT(firedOfAll(), IsEmpty());
    outer.end();
    EXPECT_THAT(firedOfAll(), IsEmpty());
    EXPECT_EQ(changes, 0);
    inner.end();
    EXPECT_EQ(changes, 1) << "one was taken meanwhile";
    EXPECT_THAT(firedOfAll(), ElementsAre(early.keyCode, late.keyCode));
    inner = CarbonHotKeys().suspend(); // which ends before what it returned
}

TEST_F(MacServices, HotKeysAreSharedWithOtherPrograms) {
    constexpr KeyCombination combination{0x28, 0}, foreign{0x26, 0};
    system().combinationsOfOthers = {{standins::System::combination(0x28, 0), false}};
    CarbonHotKeys hotKeys;
    int fired = 0;
    const auto mine = hotKeys.registerHotKey(combination, [&] { ++fired; });
    ASSERT_TRUE(mine) << "though another program has it, too";
    EXPECT_EQ(system().press(0x28, 0), noErr);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(system().pressesOfOthers, 1);

    // Somebody else in this process counts their own from the beginning, too.
    EventHotKeyRef theirs = nullptr;
    RegisterEventHotKey(0x26, 0, {0x6f74'6872, 1}, GetEventDispatcherTarget(), 0, &theirs);
    EXPECT_FALSE(hotKeys.registerHotKey(foreign, [] {}));
    EXPECT_EQ(system().press(0x26, 0), eventNotHandledErr);
    EXPECT_EQ(fired, 1);
    UnregisterEventHotKey(theirs);
}

TEST_F(MacServices, AnInputMethodHasALayoutOfItsOwn) {
    for (const auto* id : {"method", "layout"})
        system().sources.push_back({{"TISPropertyInputSourceID", id}});
    system().layoutsOfInputMethods = {{"method", "layout"}};
    system().select("method");
    const TISInputSources sources({});
    EXPECT_EQ(sources.copyCurrentKeyboardInputSource()->id, "method");
    EXPECT_EQ(sources.copyCurrentKeyboardLayoutInputSource()->id, "layout");
}

TEST_F(MacServices, BelongToTheMainThread) {
    TISInputSources sources({});
    const std::function<void()> uses[] = {[&] { sources.createInputSourceList(); },
                                          [&] { sources.createInputSourceList("a"); },
                                          [&] { sources.copyCurrentKeyboardInputSource(); },
                                          [&] { sources.copyCurrentKeyboardLayoutInputSource(); },
                                          [&] { sources.selectInputSource({.id = "a"}); },
                                          [&] { sources.localizedName({.id = "a"}); },
                                          [&] { sources.iconOfReference({.id = "a"}); },
                                          [] { nameOfKey(0, ""); },
                                          [] { CarbonHotKeys(); }};
    for (const auto& use : uses)
        EXPECT_DEATH(std::thread(use).join(), "belong to the main thread");
}

TEST_F(MacServices, StringsAreWholeOrNothing) {
    for (const auto* text : {"", "q", "\xC3\x9C \xE2\x82\xAC", "\xF0\x9F\x90\x8E"})
        EXPECT_EQ(stringOf(makeString(text).get()), text);
    const auto half =
        CFRef<CFTypeRef>::adopt(standins::add({.type = standins::string, .text = "a", .length = 2}));
    EXPECT_FALSE(stringOf(half.get()));
}

TEST_F(MacServices, ReferencesAreCopiedMovedAndReplaced) {
    auto first = makeString("first");
    const auto same = first;
    auto second = CFRef<CFStringRef>::retain(makeString("second").get());
    first = std::move(second);
    EXPECT_EQ(stringOf(first.get()), "second");
    second = same;
    first = CFRef<CFStringRef>::retain(nullptr);
    EXPECT_FALSE(first);
    EXPECT_EQ(stringOf(second.get()), "first");
}

} // namespace
} // namespace quorvane
