// Real launchers, opened and typed into while another program is in front.

#include <gtest/gtest.h>

#include "linux/support/Groups.h"
#include "linux/support/Keyboard.h"
#include "linux/support/TestWindow.h"
#include "settings/AppRule.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr std::uint8_t super = 133;

struct RealLauncher {
    const char* name;
    const char* command; ///< Prints what was entered.
    const char* desktopId;
};

class Launchers : public testing::TestWithParam<RealLauncher> {
protected:
    Launchers() {
        qputenv("LC_ALL", "C.UTF-8");
        // As an earlier version has stored it.
        const auto former = std::string("com.runningwithcrayons.Alfred.") + GetParam().desktopId;
        auto& standard = session_.stores.standardUserDefaults();
        setRuleInput(standard, former, "xkb:ru");
        session_.program.emplace(QUORVANE_PROGRAM);
        const auto rules = [&] { return standard.objectForKey(key::autoInput); };
        waitUntil([&] { return !rules()[GetParam().desktopId].isNothing(); });
        EXPECT_TRUE(rules()[former].isNothing());
        session_.setRule("Front", "xkb:de");
        front_.emplace(QStringList{"class=Front", "title=Front"});
    }
    void open() { launcher_.emplace("sh", QStringList{"-c", GetParam().command}); }

    ProgramSession session_;
    std::optional<TestWindow> front_;
    std::optional<RunningProgram> launcher_;
};

TEST_P(Launchers, AreTypedIntoInTheLayoutOfTheirRule) {
    ASSERT_TRUE(session_.waitForGroup(de));
    session_.user.press(super); // its shortcut, in part
    open();
    ASSERT_TRUE(session_.waitForGroup(ru));
    session_.user.release(super);
    session_.type({38, 39, 52, 47, enter}); // A S Z ; on an American keyboard
    EXPECT_TRUE(waitUntil([&] { return launcher_->output() == "фыяж\n"; }))
        << launcher_->output().toStdString();
    EXPECT_TRUE(session_.waitForGroup(de));

    open();
    ASSERT_TRUE(session_.waitForGroup(ru));
    session_.type({escape});
    EXPECT_TRUE(session_.waitForGroup(de)) << "though no modifier moves";
    EXPECT_TRUE(waitUntil([&] { return session_.switchTimes() == 5; }));
}

TEST_P(Launchers, GiveWayToAnotherApplicationAndToAnotherLauncher) {
    session_.setRule("Other", "xkb:us");
    session_.setRule("synapse", "xkb:us");
    ASSERT_TRUE(session_.waitForGroup(de));
    open();
    ASSERT_TRUE(session_.waitForGroup(ru));
    const TestWindow other({"class=Other"});
    EXPECT_TRUE(session_.waitForGroup(us));
    launcher_.reset();
    session_.user.activate(front_->window());
    ASSERT_TRUE(session_.waitForGroup(de));
    open();
    ASSERT_TRUE(session_.waitForGroup(ru));
    const TestWindow launcher({"class=Synapse"});
    session_.user.activate(launcher.window());
    launcher_.reset(); // a pop-up has the keys until then
    EXPECT_TRUE(session_.waitForGroup(us));
}

TEST(ManagedLauncher, LeavesHotKeysWithoutEffectWhileItHasTheFocus) {
    constexpr std::int64_t keyR = 15, controlOption = 0xc0000;
    ProgramSession session;
    setShortcut(session.stores.standardUserDefaults(), "xkb:us", InputShortcut{keyR, controlOption}.record());
    session.startProgram();
    session.setRule("Front", "xkb:de");
    session.setRule("synapse", "xkb:ru");
    const TestWindow front({"class=Front"});
    ASSERT_TRUE(session.waitForGroup(de));
    std::optional<TestWindow> launcher(QStringList{"class=Synapse"});
    session.user.activate(launcher->window());
    ASSERT_TRUE(session.waitForGroup(ru));
    session.user.pressTogether({37, 64, 27});
    session.user.activate(front.window());
    ASSERT_TRUE(session.waitForGroup(de));
    session.user.pressTogether({37, 64, 27});
    ASSERT_TRUE(session.waitForGroup(us));
    EXPECT_TRUE(waitUntil([&] { return session.switchTimes() == 4; }))
        << "one for each window, and one hot key";
}

constexpr RealLauncher realLaunchers[] = {
    {"rofi", "exec rofi -dmenu < /dev/null", "rofi"},
    {"managed_rofi", "exec rofi -normal-window -dmenu < /dev/null", "rofi"},
    {"dmenu", "exec dmenu < /dev/null", "dmenu"},
};
INSTANTIATE_TEST_SUITE_P(Program, Launchers, testing::ValuesIn(realLaunchers),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
} // namespace quorvane
