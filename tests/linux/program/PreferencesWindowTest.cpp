// The preferences window of the running program, used with mouse and keyboard.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/program/PreferencesSession.h"
#include "linux/support/TestWindow.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr unsigned us = 0, ru = 1;
constexpr std::uint8_t wheelDown = 5;
constexpr std::uint8_t k = 45, down = 116, enter = 36, control = 37, option = 64;

const QString applications = "Switch by application";
const QString shortcuts = "Shortcuts";
enum Column { icon, name, input };

class PreferencesWindow : public testing::Test, protected PreferencesSession {
protected:
    PreferencesWindow() {
        for (const auto* each : {"First", "Second", "Third"})
            install(each, each);
    }

    void showTab(const QString& name) { click("radio button", name); }

    UserDefaults& standard() { return session.stores.standardUserDefaults(); }
    PropertyList stored(std::string_view key) { return standard().objectForKey(key); }
};

TEST_F(PreferencesWindow, ASourceChosenForTheApplicationBehindItIsUsedWhenThatIsInFrontAgain) {
    for (const auto* each : {"First", "Second"})
        setRuleInput(standard(), each, "xkb:us");
    open();
    const TestWindow second({"class=Second", "at=1300,600,200,100"});
    ASSERT_TRUE(waitUntil([&] { return tree.nameOfCell(applications, 1, name) == "Second"; }));
    const auto defaultInput = tree.placeOf("combo box", "-").center();
    session.user.moveTo(defaultInput.x(), defaultInput.y());
    session.user.click(wheelDown); // which is for scrolling, and chooses nothing
    clickAt(tree.placeOfCell(applications, 1, input).center());
    ASSERT_TRUE(waitUntil([&] { return isMenuOpen(); }));
    session.type({down, enter});
    ASSERT_TRUE(
        waitUntil([&] { return AppRule::ofApplication(stored(key::autoInput), "Second").id() == "xkb:ru"; }));
    EXPECT_EQ(AppRule::ofApplication(stored(key::autoInput), "First").id(), "xkb:us");
    EXPECT_TRUE(stored(key::defaultInput).isNothing());
    session.user.activate(second.window());
    EXPECT_TRUE(session.waitForGroup(ru));
}

TEST_F(PreferencesWindow, WhileTheCompanionSetsUpItStaysAboveOnAllDesktops) {
    open();
    click("check box", "Start Setup");
    click("push button", "Cancel"); // of the sheet that says what it needs
    EXPECT_TRUE(waitUntil([&] { return !tree.isChecked("check box", "Start Setup"); }));
    TestProgram companion(QUORVANE_TEST_COMPANION);
    ASSERT_TRUE(waitUntil([&] { return companion.output() == "ready\n"; }));
    const auto seen = window();
    const auto above = XConnection::open()->atom("_NET_WM_STATE_ABOVE");
    const auto isSetUp = [&](const QString& told) {
        const bool isOnAll = session.user.values(seen, "_NET_WM_DESKTOP") == std::vector{0xFFFFFFFFU};
        const bool isAbove = std::ranges::count(session.user.values(seen, "_NET_WM_STATE"), above) > 0;
        return isOnAll && isAbove && companion.output().endsWith(told);
    };
    click("check box", "Start Setup");
    EXPECT_TRUE(waitUntil([&] { return isSetUp("StartSetUpSwitchInputByLocation\n"); }));
    session.user.pressTogether({control, 25}); // W
    EXPECT_TRUE(waitUntil([&] { return companion.output().endsWith("StopSetUpSwitchInputByLocation\n"); }));
    launchAgain();
    EXPECT_FALSE(tree.placeOf("check box", "Start Setup").isEmpty());
    EXPECT_FALSE(isSetUp(""));
}

TEST_F(PreferencesWindow, ARecordedHotKeyWorksInOtherProgramsAtOnce) {
    open();
    showTab("Preference");
    const TestWindow other({"class=Other", "at=1300,750,200,100"});
    // A recorder that records has another ground, and by then no other hot key is heard.
    const auto cell = tree.placeOfCell(shortcuts, 1, input);
    const auto ground = [&] { return session.user.pixelAt(cell.left() + 34, cell.center().y()); };
    const auto idle = ground();
    clickAt(cell.center());
    ASSERT_TRUE(waitUntil([&] { return ground() != idle; }));
    session.user.pressTogether({control, option, k});
    ASSERT_TRUE(waitUntil([&] { return ground() == idle; }));
    EXPECT_TRUE(tree.nameOfCell(shortcuts, 1, input).contains("Ctrl+Alt+K"));
    EXPECT_EQ(session.group(), us) << "it does not fire while it is recorded";
    const auto record = stored(key::shortcutOfInput)["xkb:ru"];
    EXPECT_EQ(record["keyCode"].integerValue(), 40);
    EXPECT_EQ(record["modifierFlags"].integerValue(), 0x40000 + 0x80000);
    session.user.activate(other.window());
    session.user.pressTogether({control, option, k});
    EXPECT_TRUE(session.waitForGroup(ru));
}

TEST_F(PreferencesWindow, WithTheStatusItemHiddenItsClosingStartsTheProgramAnew) {
    open();
    showTab("Preference");
    click("check box", "Hide the icon in the status bar");
    ASSERT_TRUE(waitUntil([&] { return standard().boolForKey(key::hiddenIconInStatusBar); }));
    session.user.pressTogether({control, 25}); // W
    ASSERT_TRUE(session.program->waitForEnd());
    EXPECT_EQ(session.program->exitCode(), 0);
    session.setRule("taken.by.the.new.one", "xkb:de");
    launchAgain();
    showTab("Preference");
    EXPECT_TRUE(waitUntil([&] { return tree.isChecked("check box", "Hide the icon in the status bar"); }));
}

} // namespace
} // namespace quorvane
