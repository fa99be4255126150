// The preferences window of the running program, used with mouse and keyboard.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/program/ProgramSession.h"
#include "linux/support/AccessibleTree.h"
#include "linux/support/TestWindow.h"
#include "platform/linux/windows/StackedWindow.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "settings/LocationRule.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr unsigned us = 0, ru = 1, de = 2;
constexpr std::uint8_t a = 38, b = 56, k = 45, down = 116, enter = 36, control = 37, option = 64, f2 = 68;

const QString applications = "Switch by application";
const QString locations = "Switch by location";
const QString shortcuts = "Shortcuts";
enum Column { icon, name, input };

class PreferencesWindow : public testing::Test {
protected:
    PreferencesWindow() {
        for (const QString each : {"First", "Second", "Third"}) {
            session_.folders.write(
                "data/applications/" + each + ".desktop",
                QString("[Desktop Entry]\nType=Application\nName=%1\nExec=%1\n").arg(each).toUtf8());
        }
    }

    void open() {
        session_.startProgram();
        launchAgain();
    }

    /// Launching the running program shows its window, whose place is known when the window manager has given
    /// it a frame.
    void launchAgain() {
        TestProgram again(QUORVANE_PROGRAM);
        ASSERT_TRUE(again.waitForEnd());
        ASSERT_TRUE(waitUntil([&] {
            const auto told = tree_.placeOf("frame", "Quorvane");
            const Rect place{double(told.x()), double(told.y()), double(told.width()), double(told.height())};
            return std::ranges::any_of(stackedWindows(*x_), [&](const auto& each) {
                return each.isVisible && each.bounds == place;
            });
        }));
    }

    void moveTo(const QPoint& place) { session_.user.moveTo(place.x(), place.y()); }
    void clickAt(const QPoint& place) {
        moveTo(place);
        session_.user.click(1);
    }
    void click(const QString& role, const QString& name) { clickAt(tree_.placeOf(role, name).center()); }
    void showTab(const QString& name) { click("radio button", name); }

    UserDefaults& standard() { return session_.stores.standardUserDefaults(); }
    PropertyList stored(std::string_view key) { return standard().objectForKey(key); }
    std::vector<std::string> namesIn(const QString& table, int rows) {
        std::vector<std::string> names;
        for (int row = 0; row < rows; ++row)
            names.push_back(tree_.nameOfCell(table, row, name).toStdString());
        return names;
    }

    ProgramSession session_;
    AccessibleTree tree_;
    std::unique_ptr<XConnection> x_ = XConnection::open();
};

TEST_F(PreferencesWindow, ASourceChosenForAnApplicationIsUsedAtItsNextActivation) {
    for (const auto* each : {"First", "Second"})
        setRuleInput(standard(), each, "xkb:us");
    open();
    const TestWindow second({"class=Second", "at=1300,600,200,100"});
    const TestWindow other({"class=Other", "at=1300,750,200,100"});
    ASSERT_TRUE(waitUntil([&] { return namesIn(applications, 3)[1] == "Second"; }));
    clickAt(tree_.placeOfCell(applications, 1, input).center());
    ASSERT_TRUE(waitUntil([&] {
        return std::ranges::any_of(stackedWindows(*x_),
                                   [](const auto& each) { return each.isPopUp && each.bounds.height > 40; });
    }));
    session_.type({down, enter});
    ASSERT_TRUE(
        waitUntil([&] { return AppRule::ofApplication(stored(key::autoInput), "Second").id() == "xkb:ru"; }));
    EXPECT_EQ(AppRule::ofApplication(stored(key::autoInput), "First").id(), "xkb:us");
    session_.user.activate(second.window());
    EXPECT_TRUE(session_.waitForGroup(ru));
}

TEST_F(PreferencesWindow, ARowIsDraggedBelowTheLastOne) {
    for (const auto* each : {"First", "Second", "Third"})
        setRuleInput(standard(), each, "xkb:us");
    open();
    ASSERT_TRUE(waitUntil([&] { return namesIn(applications, 3)[2] == "Third"; }));
    const auto last = tree_.placeOfCell(applications, 2, name);
    moveTo(tree_.placeOfCell(applications, 0, name).center());
    session_.user.pressButton(1);
    for (int step = 8; step >= 0; --step)
        moveTo({last.center().x(), last.bottom() - 1 - 4 * step});
    session_.user.releaseButton(1);
    EXPECT_TRUE(waitUntil([&] {
        return namesIn(applications, 3) == std::vector<std::string>{"Second", "Third", "First"};
    }));
    EXPECT_TRUE(waitUntil([&] { return stored(key::orderOfAppsRule).array() != nullptr; }));
}

TEST_F(PreferencesWindow, ALocationIsRenamedWhileTheCompanionAddsAnother) {
    TestProgram companion(QUORVANE_TEST_COMPANION);
    open();
    companion.write("old\n");
    ASSERT_TRUE(waitUntil([&] { return tree_.nameOfCell(locations, 0, name) == "old"; }));
    clickAt(tree_.placeOfCell(locations, 0, name).center());
    ASSERT_TRUE(waitUntil([&] { return tree_.isEnabled("push button", "Remove Location"); }));
    session_.type({f2, a, b});
    companion.write("new\n");
    ASSERT_TRUE(waitUntil([&] { return tree_.nameOfCell(locations, 1, name) == "new"; }));
    session_.type({a, enter});
    ASSERT_TRUE(waitUntil([&] { return locationRules(*session_.shared())[0].name == "aba"; }));
    const auto stored = session_.shared()->objectForKey(key::arrOfLocationInfo);
    ASSERT_EQ(stored.array()->size(), 2U);
    EXPECT_EQ(stored.array()->front()["Kind"], PropertyList("the companion's own"));
}

TEST_F(PreferencesWindow, ARecordedHotKeyWorksInOtherProgramsAtOnce) {
    open();
    showTab("Preference");
    const TestWindow other({"class=Other", "at=1300,750,200,100"});
    // A recorder that records has another ground, and by then no other hot key is heard.
    const auto cell = tree_.placeOfCell(shortcuts, 1, input);
    const auto ground = [&] { return session_.user.pixelAt(cell.left() + 34, cell.center().y()); };
    const auto idle = ground();
    for (int time = 0; time < 2; ++time) { // the second time over the first one's hot key
        clickAt(cell.center());
        ASSERT_TRUE(waitUntil([&] { return ground() != idle; }));
        session_.user.pressTogether({control, option, k});
        ASSERT_TRUE(waitUntil([&] { return ground() == idle; }));
        EXPECT_TRUE(tree_.nameOfCell(shortcuts, 1, input).contains("Ctrl+Alt+K"));
        EXPECT_EQ(session_.group(), us) << "it does not fire while it is recorded";
    }
    const auto record = stored(key::shortcutOfInput)["xkb:ru"];
    EXPECT_EQ(record["keyCode"].integerValue(), 40);
    EXPECT_EQ(record["modifierFlags"].integerValue(), 0x40000 + 0x80000);
    session_.user.activate(other.window());
    session_.user.pressTogether({control, option, k});
    EXPECT_TRUE(session_.waitForGroup(ru));
}

TEST_F(PreferencesWindow, WithTheStatusItemHiddenItsClosingStartsTheProgramAnew) {
    open();
    showTab("Preference");
    click("check box", "Hide the icon in the status bar");
    ASSERT_TRUE(waitUntil([&] { return standard().boolForKey(key::hiddenIconInStatusBar); }));
    session_.user.pressTogether({control, 25}); // W
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
    session_.setRule("taken.by.the.new.one", "xkb:de");
    launchAgain();
    showTab("Preference");
    EXPECT_TRUE(waitUntil([&] { return tree_.isChecked("check box", "Hide the icon in the status bar"); }));
}

} // namespace
} // namespace quorvane
