// What a desktop is asked for somebody who wants to know how it is, and in which order that is told.

#include <gmock/gmock.h>

#include "control/SelfCheck.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

constexpr const char* beginning =
    "Quorvane          1.2\n"
    "looking for       3 seconds: switch applications, press Shift, click, open a launcher\n";
constexpr const char* ending = "not asked         what would be seen or change something: alerts, the open "
                               "panel, the status item, links, other programs\n";

struct SelfCheckTest : testing::Test {
    /// Everything that is told between the beginning and the ending, while the desktop does something.
    std::string told(const std::function<void()>& happens) {
        std::string lines;
        SelfCheck check(
            desktop_.desktop, [&](const std::string& line) { lines += line + '\n'; },
            [](const TellFact& tell) { tell("system", "simulated"); });
        check.start();
        happens();
        desktop_.runLoop.advance(2.9);
        EXPECT_EQ(lines, beginning);
        lines.clear();
        desktop_.runLoop.advance(0.2);
        EXPECT_TRUE(lines.ends_with(ending)) << lines;
        return lines.substr(0, lines.size() - std::string(ending).size());
    }

    SimulatedDesktop desktop_;
};

TEST_F(SelfCheckTest, TellsWhatThereIsAndChangesNothing) {
    desktop_.inputSources.enable({.id = "us", .hasIconReference = true});
    desktop_.inputSources.enable({.id = "kana",
                                  .category = InputSourceCategory::other,
                                  .isSelectCapable = false,
                                  .iconImageURL = "x"});
    desktop_.inputSources.names["us"] = "U.S.";
    desktop_.inputSources.icons["us"] = SimulatedImage::ofColor({16, 18}, 0, 0, 0);
    desktop_.applicationBundles.paths["front.app"] = "/Front";
    const RunningApplication front{"front.app", "Front", ActivationPolicy::regular, 42};
    desktop_.workspace.launch(front);
    desktop_.workspace.activate(front);
    desktop_.windowList.frontToBack = {
        {"Front", "a secret", {10, 20.5, 300, 200}, 0, true}, {"Panel", "", {}, 25, false}, {}};
    desktop_.defaults.standardUserDefaults().setBool(true, key::followWindow);
    desktop_.defaults.standardUserDefaults().setObject(PropertyList::Dictionary{{"secret", 1}},
                                                       key::autoInput);
    openSharedDefaults(desktop_.defaults)->setInteger(7, key::switchTimes);
    desktop_.loginItems.isOn = true;
    desktop_.journal.take();
    const auto happens = [&] {
        desktop_.globalEvents.send({.type = EventType::flagsChanged});
        desktop_.inputSources.selectFromOutside("kana");
        desktop_.workspace.activate(front);
    };
    EXPECT_EQ(
        told(happens),
        "system            simulated\n"
        "text              *Preferences…\n"
        "picture           menuBarIcon 18 x 18\n"
        "time              1700000000\n"
        "source            U.S. (us), icon drawn by the desktop, icon 16 x 18\n"
        "source            kana, not of a keyboard, cannot be selected, icon in a file, icon none\n"
        "current source    kana\n"
        "current layout    kana\n"
        "switches ahead    no\n"
        "in front          Front (front.app), process 42\n"
        "its bundle        Front, icon none\n"
        "applications      1\n"
        "companion         does not run\n"
        "window            Front, layer 0, 300 x 200 at 10, 20.5, a name\n"
        "window            Panel, layer 25, 0 x 0 at 0, 0, an empty name, not on the screen\n"
        "window            no owner told, layer 0, 0 x 0 at 0, 0, no name told, not on the screen\n"
        "launchers         looked for: com.apple.Spotlight com.runningwithcrayons.Alfred*\n"
        "main screen       number 1, 1440 x 900 at 0, 0, 24 bits\n"
        "deepest screen    number 1, 1440 x 900 at 0, 0, 24 bits\n"
        "hot spot          4, 4\n"
        "own settings      org.example.Quorvane, followWindow on, autoInput 1\n"
        "shared settings   EXAMPLE000.group.org.example, SwitchTimes 7\n"
        "login item        on\n"
        "hot key           Ctrl+Alt+Shift+Super+F20: granted\n"
        "own message       came back\n"
        "events            activated 1, shown again 0, launched 0, left the front 0, front window moved 0, "
        "launcher told 0, source changed 1, moved by the companion 0, modifiers 1, clicks 0\n");
    EXPECT_THAT(desktop_.journal.take(),
                testing::ElementsAre(
                    "0 observe activations; observe unhides; observe launches; observe leaves; observe front "
                    "window; observe launchers; observe com.apple.Carbon.TISNotifySelectedKeyboardInputSource"
                    "Changed; observe AXWindowAdjusted; observe org.example.Quorvane.SelfCheck; post "
                    "org.example.Quorvane.SelfCheck; monitor 4100; register 90 0x1e0000",
                    "3 load menuBarIcon; list all; load x; load file://x.tiff; keep kana; look; unregister "
                    "90 0x1e0000; end front window; "
                    "end monitor 4100; terminate"));
}

TEST_F(SelfCheckTest, TellsWhatIsMissing) {
    desktop_.screens.main = desktop_.screens.deepest = {};
    desktop_.cursor.current = {};
    desktop_.distributedNotifications.lose();
    const auto lines = told([&] {
        desktop_.hotKeys.takeFromOutside({0x5a, 0x1e0000});
        desktop_.hotKeys.changed.emit(); // Some desktops answer later.
    });
    for (const auto* line : {"source            none", "current source    none", "in front          none",
                             "its bundle        none", "window            none", "main screen       none",
                             "deepest screen    none", "hot spot          none", "login item        not told",
                             "F20: refused", "own message       did not come back"})
        EXPECT_THAT(lines, testing::HasSubstr(line + std::string("\n")));
}

} // namespace
} // namespace quorvane
