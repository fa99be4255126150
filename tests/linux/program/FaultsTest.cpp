// What the program says and does where something is missing or ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "linux/program/ProgramSession.h"
#include "linux/support/TestWindow.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

class Faults : public testing::Test {
protected:
    int linesOf(const QString& text) { return static_cast<int>(text.count('\n')); }

    ProgramSession session_;
};

TEST(WithoutXServer, TheProgramSaysSoAndFails) {
    const ScratchFolders folders;
    qputenv("DISPLAY", ":4711");
    TestProgram program(QUORVANE_PROGRAM);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.errors().toStdString(), HasSubstr("no X server"));
    EXPECT_EQ(program.errors().count('\n'), 1);
}

TEST_F(Faults, WithoutTrayBusAndWindowManagerItSaysSoAndWaits) {
    session_.manager->end();
    session_.manager.reset();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    session_.startProgram();
    session_.setRule("First", "xkb:ru");
    const auto errors = session_.program->errors().toStdString();
    for (const auto* line : {"no system tray", "no session bus", "no window manager", "LoginItemSetEnabled"})
        EXPECT_THAT(errors, HasSubstr(line));
    EXPECT_EQ(linesOf(session_.program->errors()), 4) << errors;
    session_.manager.emplace("openbox");
    const TestWindow first({"class=First"});
    EXPECT_TRUE(session_.waitForGroup(1)) << "a window manager has come";
}

TEST_F(Faults, MalformedSettingsAreIgnoredAndKept) {
    const PropertyList malformed = PropertyList::Dictionary{
        {"First", "no dictionary"}, {"Second", PropertyList::Dictionary{{"id", PropertyList::Array{1}}}}};
    session_.shared()->setObject("no number", key::switchTimes);
    session_.startProgram();
    session_.stores.standardUserDefaults().setObject(malformed, key::autoInput);
    session_.stores.standardUserDefaults().setObject(7, key::defaultInput);
    session_.stores.standardUserDefaults().setObject(PropertyList::Array{}, key::hiddenIconInStatusBar);
    session_.stores.standardUserDefaults().synchronize();
    ASSERT_TRUE(waitUntil([&] { return session_.shared()->objectForKey(key::autoInput) == malformed; }));
    const TestWindow first({"class=First"});
    const TestWindow second({"class=Second"});
    session_.setRule("Third", "xkb:ru");
    const TestWindow third({"class=Third"});
    EXPECT_TRUE(session_.waitForGroup(1)) << "the program goes on";
    EXPECT_EQ(session_.stores.standardUserDefaults().objectForKey(key::autoInput)["First"],
              malformed["First"]);
}

TEST_F(Faults, ASecondLaunchFindsTheFirstAndLeaves) {
    session_.startProgram();
    TestProgram second(QUORVANE_PROGRAM);
    ASSERT_TRUE(second.waitForEnd());
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(session_.program->isRunning());

    // A relaunched one waits for its predecessor and then takes its place.
    TestProgram successor(QUORVANE_PROGRAM, {"--new-instance"});
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    session_.setRule("First", "xkb:ru");
    const TestWindow first({"class=First"});
    EXPECT_TRUE(session_.waitForGroup(1));
    EXPECT_TRUE(successor.isRunning());
}

TEST_F(Faults, ToldToEndItEndsCleanlyAndLosesNothing) {
    session_.startProgram();
    session_.setRule("First", "xkb:ru");
    const TestWindow first({"class=First"});
    ASSERT_TRUE(session_.waitForGroup(1));
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
    EXPECT_EQ(session_.switchTimes(), 1);
}

TEST_F(Faults, ToldToEndWhileItRemindsItEndsToo) {
    session_.stores.standardUserDefaults().removeObjectForKey(key::notNeedRemindForAutoStartAtLogin);
    session_.stores.standardUserDefaults().synchronize();
    session_.program.emplace(QUORVANE_PROGRAM);
    const auto hasWindow = [this] {
        return !session_.user.values(session_.user.root(), "_NET_CLIENT_LIST").empty();
    };
    ASSERT_TRUE(waitUntil(hasWindow)) << "the reminder";
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
}

TEST_F(Faults, WhenTheServerGoesItEndsWithoutACrash) {
    session_.startProgram();
    session_.server.end();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_GE(session_.program->exitCode(), 0) << "not by a signal";
}

} // namespace
} // namespace quorvane
