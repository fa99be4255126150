// The whole program in a session of GNOME Shell.

#include <chrono>

#include <gtest/gtest.h>

#include "linux/gnome/GnomeDesktop.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/Keys.h"
#include "tests/linux/support/Groups.h"
#include "virtual-desktop/RunningProgram.h"
#include "virtual-desktop/WaylandTextProgram.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {
namespace {

constexpr std::uint8_t g = 42;

class GnomeProgramTest : public testing::Test {
protected:
    /// Starts the program with these rules; everybody else gets xkb:us.
    void start(const std::map<std::string, std::string>& rules) {
        PropertyList::Dictionary autoInput;
        for (const auto& [application, source] : rules)
            autoInput[application] = PropertyList::Dictionary{{"id", source}};
        shared()->setObject(autoInput, key::autoInput);
        shared()->setInteger(0, key::switchTimes);
        auto& standard = stores.standardUserDefaults();
        standard.setBool(true, key::notNeedRemindForAutoStartAtLogin);
        standard.setObject("xkb:us", key::defaultInput);
        standard.synchronize();
        shared()->synchronize();
        program.emplace(QUORVANE_PROGRAM);
        // Whoever is in front is decided for again once the program hears of it.
        ASSERT_TRUE(waitUntil([&] { return control({"status"}).contains("sources from\tGNOME Shell"); }));
        ASSERT_TRUE(waitUntil([&] { return control({"sources"}).contains("current"); }));
    }

    std::unique_ptr<UserDefaults> shared() { return stores.initWithSuiteName(maker::sharedSuiteName); }

    static QString control(const QStringList& arguments) {
        RunningProgram tool(QUORVANE_CONTROL, arguments);
        tool.waitForEnd();
        return tool.output();
    }

    /// Brings a window to the front and presses a key in the same moment.
    void activateAndType(const QString& window, std::uint8_t keycode) {
        const auto key = QString::number(keycode - 8);
        server.evaluate("[activate('" + window + "'), send(" + key + ", true), send(" + key + ", false)]");
    }

    GnomeDesktop& desktop = GnomeDesktop::shared(usual);
    GnomeServer& server = desktop.server;
    LinuxUserDefaults stores{LinuxUserDefaults::configFolder(), maker::bundleIdentifier};
    std::optional<RunningProgram> program;
};

TEST_F(GnomeProgramTest, TheFirstKeyAfterAFocusChangeIsRightAndEverySwitchCounts) {
    WaylandWindow russian("russian"), english("english");
    ASSERT_TRUE(server.activate("english"));
    start({{"russian", "xkb:ru"}});
    ASSERT_TRUE(waitUntil([&] { return control({"why"}).startsWith("english: English"); }));
    constexpr int rounds = 10;
    for (int round = 1; round <= rounds; ++round) {
        activateAndType("russian", g);
        ASSERT_TRUE(waitUntil([&] { return russian.typed().size() == round; }));
        activateAndType("english", g);
        ASSERT_TRUE(waitUntil([&] { return english.typed().size() == round; }));
    }
    EXPECT_EQ(russian.typed(), QString(rounds, u'п'));
    EXPECT_EQ(english.typed(), QString(rounds, 'g'));
    EXPECT_TRUE(waitUntil([&] { return shared()->integerForKey(key::switchTimes) == 2 * rounds; }))
        << shared()->integerForKey(key::switchTimes);
    EXPECT_EQ(control({"why", "russian"}).trimmed(), "russian: Russian (xkb:ru), by its rule");

    // A pause holds from its beginning, and what it left undone is done at its end.
    control({"pause"});
    activateAndType("russian", g);
    EXPECT_TRUE(waitUntil([&] { return russian.typed().endsWith('g'); }));
    control({"resume"});
    EXPECT_TRUE(waitUntil([&] { return server.layout() == ru; }));
    EXPECT_EQ(shared()->integerForKey(key::switchTimes), 2 * rounds + 1);
}

TEST_F(GnomeProgramTest, TheOverviewIsALauncher) {
    WaylandWindow window("window");
    ASSERT_TRUE(server.activate("window"));
    start({{"org.gnome.Shell", "xkb:de"}, {"window", "xkb:ru"}});
    ASSERT_TRUE(waitUntil([&] { return server.layout() == ru; }));
    server.setOverview(true);
    EXPECT_TRUE(waitUntil([&] { return server.layout() == de; }));
    server.setOverview(false);
    EXPECT_TRUE(waitUntil([&] { return server.layout() == ru; }));
}

TEST_F(GnomeProgramTest, NothingIsLeftBehindByAProgramThatIsKilledNorForgottenByTheNext) {
    WaylandWindow russian("russian"), english("english");
    ASSERT_TRUE(server.activate("english"));
    start({{"russian", "xkb:ru"}});
    ::kill(static_cast<pid_t>(program->processId()), SIGKILL);
    program->waitForEnd();
    activateAndType("russian", g);
    EXPECT_TRUE(waitUntil([&] { return russian.typed() == "g"; })) << "nobody switches";
    program.emplace(QUORVANE_PROGRAM);
    EXPECT_TRUE(waitUntil([&] { return server.layout() == ru; }));
}

TEST_F(GnomeProgramTest, ItAnswersWhileTheShellHangs) {
    start({});
    server.stop();
    const auto begin = std::chrono::steady_clock::now();
    for (int time = 0; time < 5; ++time) {
        control({"select", "xkb:de"});
        EXPECT_FALSE(control({"status"}).isEmpty());
    }
    // Ten commands, with the processes that ask.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    server.resume();
    EXPECT_TRUE(waitUntil([&] { return server.layout() == de; }));
}

TEST_F(GnomeProgramTest, AnInputMethodReadsLatinLettersWhateverWasTypedBefore) {
    ASSERT_TRUE(desktop.haveSources("('xkb','us'),('xkb','ru'),('ibus','libpinyin')"));
    qputenv("QT_IM_MODULE", "ibus");
    WaylandTextProgram chinese(server, TextCommand::Toolkit::qt, "chinese");
    qunsetenv("QT_IM_MODULE");
    WaylandWindow russian("russian");
    start({{"chinese", "ibus:libpinyin"}, {"russian", "xkb:ru"}});
    constexpr std::uint8_t n = 57, i = 31, space = 65;
    QString before;
    // Until the engine, which the shell loads when it is first used, takes keys.
    EXPECT_TRUE(waitUntil([&] {
        before = chinese.typed();
        if (!server.activate("russian") || !waitUntil([&] { return server.layout() == ru; })) return false;
        if (!server.activate("chinese") || server.layout() != 2) return false;
        server.type({n, i, space});
        return waitUntil([&] { return chinese.typed().size() > before.size(); }) &&
               chinese.typed().endsWith("你");
    })) << chinese.typed().toStdString();
    EXPECT_FALSE(chinese.typed().contains("т")) << "Cyrillic letters";
    EXPECT_TRUE(control({"why", "chinese"}).contains("(ibus:libpinyin), by its rule"));
}

} // namespace
} // namespace quorvane
