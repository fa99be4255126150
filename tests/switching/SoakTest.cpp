// A million things that happen to the program in any order, with what must hold all the time.

#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <malloc.h>

#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

class Soak : public ProgramTest {
protected:
    Soak() {
        for (const auto* id : {"us", "ru", "de"})
            desktop_.inputSources.enable({.id = id});
        setRule("first.app", "ru");
        setRule("second.app", "de");
        setRule("com.apple.Spotlight", "de");
        setRule(alfred, "ru");
        launch();
        for (const auto notification :
             {WorkspaceNotification::didActivateApplication, WorkspaceNotification::didUnhideApplication}) {
            told_.push_back(desktop_.workspace.addObserver(
                notification, [this](const auto& application) { lastTold_ = application.bundleIdentifier; }));
        }
    }

    template <class T>
    const T& any(const std::vector<T>& choices) {
        return choices[random_() % choices.size()];
    }
    bool coin() { return random_() % 2 == 0; }

    PropertyList anything() {
        constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
        // clang-format off
        return any(std::vector<PropertyList>{
            {}, true, -1, std::numeric_limits<std::int64_t>::max(), 1e300, nan, "ru", "none", "12",
            PropertyList::Array{1}, Dictionary{{"X", nan}, {"Y", -1e300}, {"Width", "wide"}},
            Dictionary{{"X", 10}, {"Y", 20}, {"Width", 300}}, Dictionary{{"id", 5}}});
        // clang-format on
    }

    void happen() {
        static const std::vector<std::string> apps = {"first.app", "second.app", "third.app", alfred};
        const std::string companion(maker::companionBundleIdentifier);
        // clang-format off
        switch (random_() % 16) {
        case 0: return desktop_.workspace.activate(any(apps));
        case 1: return desktop_.workspace.activate(RunningApplication{.localizedName = "nameless"});
        case 2: return desktop_.workspace.hide(any(apps));
        case 3: return desktop_.workspace.unhide(any(apps));
        case 4: return desktop_.workspace.quit(coin() ? companion : any(apps));
        case 5: return desktop_.workspace.launch(coin() ? companion : alfred, ActivationPolicy::accessory);
        case 6: return desktop_.globalEvents.send({.type = EventType::leftMouseUp});
        case 7: return showAnyWindows();
        case 8: return desktop_.windowList.tellLauncher(
            coin() ? std::optional(OpenLauncher{"rofi", {0, 0, 600, 60}}) : std::nullopt);
        case 9: return report(anything());
        case 10: return standard_.setObject(anything(), any(keys));
        case 11: return desktop_.defaults.writeFromOutside(
            maker::sharedSuiteName, key::switchTimes, anything());
        case 12: return desktop_.inputSources.selectFromOutside(any<std::string>({"us", "ru", "de", ""}));
        case 13: return changeScreens();
        default: return desktop_.globalEvents.send(
            {EventType::flagsChanged, any(flags), desktop_.runLoop.now()});
        }
        // clang-format on
    }

    void showAnyWindows() {
        constexpr auto infinity = std::numeric_limits<double>::infinity();
        const WindowDescription windows[] = {
            {"Spotlight", "", {0, 0, 600, 60}, 23, true},
            {"Alfred", std::nullopt, {0, 0, 600, 60}, 27, true},
            {"first.app", "Title", {-infinity, 1e300, infinity, 60}, 0, true},
            {std::nullopt, std::nullopt, {}, 0, true}};
        desktop_.windowList.frontToBack.clear();
        for (const auto& window : windows)
            if (coin()) desktop_.windowList.frontToBack.push_back(window);
    }

    void report(PropertyList userInfo) {
        desktop_.distributedNotifications.postFromOutside({"AXWindowAdjusted", std::move(userInfo)});
    }

    void changeScreens() {
        desktop_.screens.main.reset();
        if (coin()) desktop_.screens.main = Screen{std::int32_t(random_() % 3) + 1, {0, 0, 1440, 900}, 24};
        desktop_.screens.deepest = coin() ? desktop_.screens.main : std::nullopt;
    }

    /// Every launcher is closed, every key is released, and time passes.
    void settle() {
        desktop_.windowList.frontToBack.clear();
        desktop_.globalEvents.send({EventType::flagsChanged, 0x100, desktop_.runLoop.now()});
        desktop_.runLoop.advance(2);
        ASSERT_EQ(desktop_.runLoop.pendingCount(), 0U) << "a timer is left armed";
        desktop_.inputSources.forgetSelections();
        desktop_.distributedNotifications.forgetPosted();
        desktop_.interfaceFiles.window.orders.clear();
    }

    /// Another application comes to the front, and has its source a moment later.
    void activateAndCheck() {
        static const std::vector<std::pair<std::string, std::string>> rules = {{"first.app", "ru"},
                                                                               {"second.app", "de"}};
        const auto& [id, wanted] = any(rules);
        const bool isNews = lastTold_ != id;
        desktop_.workspace.activate(id);
        desktop_.runLoop.advance(1);
        const auto asked = desktop_.distributedNotifications.posted().size();
        ASSERT_LE(selections().size() + asked, 1U) << "at most one decision an activation";
        const bool companionRuns =
            !desktop_.workspace.runningApplicationsWithBundleIdentifier(maker::companionBundleIdentifier)
                 .empty();
        if (isNews && !companionRuns) {
            ASSERT_EQ(desktop_.inputSources.currentID(), wanted);
        }
    }

    static constexpr auto alfred = "com.runningwithcrayons.Alfred-5";
    const std::vector<std::string_view> keys{key::defaultInput, key::enableTipOfState, key::followWindow,
                                             key::hiddenIconInStatusBar, key::autoStartAtLogin};
    const std::vector<std::uint64_t> flags{0x100,    0x10100,  0x800100, 0x810100, 0x100108,
                                           0x100108, 0x110108, 0x40101,  0x20102,  0};
    std::mt19937 random_{20240229};
    std::optional<std::string> lastTold_;
    std::vector<Subscription> told_;
};

TEST_F(Soak, AMillionEventsLeaveNothingBehind) {
    constexpr int events = 1'000'000;
    std::size_t memoryInUse = 0;
    for (int event = 0; event < events; ++event) {
        happen();
        desktop_.runLoop.advance(any<double>({0, 0, 0.01, 0.05, 0.1, 0.25}));
        if (event % 50 != 0) continue;
        settle();
        activateAndCheck();
        settle();
        if (HasFatalFailure()) FAIL() << "after event " << event;
        desktop_.loginItems.calls.clear();
        desktop_.log.lines.clear();
        if (event == events / 4) memoryInUse = mallinfo2().uordblks;
    }
    constexpr std::size_t fluctuation = 64 * 1024;
    EXPECT_LT(mallinfo2().uordblks, memoryInUse + fluctuation);
}

} // namespace
} // namespace quorvane
