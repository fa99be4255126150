// The preferences window of the running program, found as a screen reader finds it, and used with mouse and
// keyboard.

#include <algorithm>
#include <stdexcept>

#include <QDir>
#include <QImage>
#include <gtest/gtest.h>

#include "linux/support/AccessibleTree.h"
#include "linux/support/Groups.h"
#include "linux/support/Keyboard.h"
#include "linux/support/Portal.h"
#include "linux/support/TestWindow.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "settings/RuleTableOrder.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr std::uint8_t wheelDown = 5;
constexpr std::uint8_t k = 45, option = 64;

const QString applications = "Switch by application", shortcuts = "Shortcuts";
enum Column { icon, name, input };

class PreferencesWindow : public testing::Test {
protected:
    /// Applications that the user has rules for, in this order.
    void setRules(const std::vector<std::string>& names) {
        for (const auto& name : names) {
            session.folders.write(QString("data/applications/%1.desktop").arg(name.c_str()),
                                  ("[Desktop Entry]\nType=Application\nExec=none\nName=" + name).c_str());
            setRuleInput(standard(), name, "xkb:us");
        }
        setOrderOfAppsRule(standard(), names);
    }

    /// Starts the program and opens its window.
    void open() {
        session.startProgram();
        launchAgain();
    }

    /// Launches the running program again, which shows its window: in its place when this returns.
    void launchAgain() {
        RunningProgram again(QUORVANE_PROGRAM);
        if (!again.waitForEnd() || !waitUntil([this] { return window() != XCB_WINDOW_NONE; }))
            throw std::runtime_error("the window does not open");
    }

    /// None (0) while it is not to be seen.
    xcb_window_t window() {
        // The program knows its place only when the window manager has given it a frame.
        const auto told = tree.placeOf("frame", "Quorvane");
        const Rect place{double(told.x()), double(told.y()), double(told.width()), double(told.height())};
        for (const auto& each : stackedWindows(*x))
            if (each.isVisible && each.bounds == place) return each.window;
        return XCB_WINDOW_NONE;
    }
    bool isMenuOpen() {
        constexpr double higherThanToolTips = 40;
        return std::ranges::any_of(stackedWindows(*x), [](const auto& each) {
            return each.isPopUp && each.isVisible && each.bounds.height > higherThanToolTips;
        });
    }

    void clickAt(const QPoint& place) {
        session.user.moveTo(place.x(), place.y());
        session.user.click(1);
    }
    void click(const QString& role, const QString& text) { clickAt(tree.placeOf(role, text).center()); }
    bool showTab(const QString& text) {
        click("radio button", text);
        return waitUntil([&] { return tree.isChecked("radio button", text); });
    }

    /// What it looks like when it has come to rest. The picture stays, to be looked at.
    QImage picture(const QString& file) {
        QDir().mkpath(QUORVANE_SCREENSHOTS);
        const auto path = QString(QUORVANE_SCREENSHOTS) + "/" + file;
        QImage before, now;
        waitUntil([&] {
            before = now;
            QProcess::execute("import", {"-window", QString::number(window()), path});
            now = QImage(path);
            return !now.isNull() && now == before;
        });
        return now;
    }

    UserDefaults& standard() { return session.stores.standardUserDefaults(); }
    PropertyList stored(std::string_view key) { return standard().objectForKey(key); }

    ProgramSession session;
    AccessibleTree tree;
    std::unique_ptr<XConnection> x = XConnection::open();
};

TEST_F(PreferencesWindow, ASourceChosenForTheApplicationBehindItIsUsedWhenThatIsInFrontAgain) {
    setRules({"First", "Second"});
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
    RunningProgram companion(QUORVANE_TEST_COMPANION);
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
    ASSERT_TRUE(showTab("Preference"));
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
    ASSERT_TRUE(showTab("Preference"));
    click("check box", "Hide the icon in the status bar");
    ASSERT_TRUE(waitUntil([&] { return standard().boolForKey(key::hiddenIconInStatusBar); }));
    session.user.pressTogether({control, 25}); // W
    ASSERT_TRUE(session.program->waitForEnd());
    EXPECT_EQ(session.program->exitCode(), 0);
    session.setRule("taken.by.the.new.one", "xkb:de");
    launchAgain();
    ASSERT_TRUE(showTab("Preference"));
    EXPECT_TRUE(waitUntil([&] { return tree.isChecked("check box", "Hide the icon in the status bar"); }));
}

struct Look {
    const char *name, *language;
    unsigned scheme; ///< The portal's: 1 is dark.
    QStringList tabs;
};
const Look looks[] = {
    {"en_light", "en", 2, {"Rules", "Preference", "Learn", "Free apps", "Contact us"}},
    {"zh_CN_dark", "zh_CN", 1, {"规则", "偏好设置", "学习", "免费应用", "联系我们"}},
};
class PreferencesWindowLook : public PreferencesWindow, public testing::WithParamInterface<Look> {};
INSTANTIATE_TEST_SUITE_P(Program, PreferencesWindowLook, testing::ValuesIn(looks),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_P(PreferencesWindowLook, IsInTheUsersLanguageAndColours) {
    const Portal portal(GetParam().scheme);
    qputenv("LANGUAGE", GetParam().language);
    setRules({"Terminal", "微信", "An application whose name is far too long to be seen"});
    session.shared()->setObject(PropertyList::Array{PropertyList::Dictionary{{"BundleIdentifier", "微信"},
                                                                             {"Name", "聊天窗口"},
                                                                             {"InputID", "xkb:de"}}},
                                key::arrOfLocationInfo);
    open();
    qunsetenv("LANGUAGE");
    std::vector<QImage> pictures;
    for (const auto& name : GetParam().tabs) {
        ASSERT_TRUE(showTab(name));
        const auto now = picture(QString("%1_%2.png").arg(GetParam().name).arg(pictures.size()));
        ASSERT_GT(now.width(), 500);
        EXPECT_EQ(now.pixelColor(3, 3).lightness() < 128, GetParam().scheme == 1);
        EXPECT_EQ(std::ranges::count(pictures, now), 0);
        pictures.push_back(now);
    }
}

} // namespace
} // namespace quorvane
