// What the program says and does where something is missing or ends.

#include <algorithm>
#include <cstring>

#include <QDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "linux/support/TestWindow.h"
#include "platform/linux/files/FileDescriptor.h"
#include "settings/Keys.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

class Faults : public testing::Test {
protected:
    ProgramSession session_;
};

TEST(WithoutXServer, TheProgramSaysSoAndFails) {
    const ScratchFolders folders;
    qputenv("DISPLAY", ":4711");
    RunningProgram program(QUORVANE_PROGRAM);
    ASSERT_TRUE(program.waitForEnd());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_THAT(program.errors().toStdString(), HasSubstr("no X server"));
    EXPECT_EQ(program.errors().count('\n'), 1);
    const struct {
        QStringList arguments;
        int status;
        QString output, errors; ///< How it begins, and all of them.
    } questions[] = {{{"--at-login", "--at-logn"}, 2, "", "quorvane: unknown argument: --at-logn\n"},
                     {{"--version"}, 0, "quorvane 0.", ""},
                     {{"--help"}, 0, "usage: quorvane [", ""}};
    for (const auto& [arguments, status, output, errors] : questions) {
        RunningProgram asked(QUORVANE_PROGRAM, arguments);
        ASSERT_TRUE(asked.waitForEnd());
        EXPECT_EQ(asked.exitCode(), status);
        EXPECT_EQ(asked.output().left(output.size()), output);
        EXPECT_EQ(asked.errors(), errors);
    }
    EXPECT_TRUE(QDir(folders.home() + "/config").isEmpty());
}

FileDescriptor listenAt(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    EXPECT_EQ(bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(listen(socket.number(), 1), 0);
    return socket;
}

TEST_F(Faults, WithoutTrayBusAndWindowManagerAndInAWaylandSessionItSaysSoOnceAndWaits) {
    session_.manager->end();
    session_.manager.reset();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const auto compositor = listenAt(qgetenv("XDG_RUNTIME_DIR") + "/wayland-9"); // One that nobody knows.
    qputenv("WAYLAND_DISPLAY", "wayland-9");
    session_.startProgram();
    qunsetenv("WAYLAND_DISPLAY");
    session_.setRule("First", "xkb:ru");
    const auto errors = session_.program->errors().toStdString();
    for (const auto* line :
         {"no system tray", "no session bus", "no window manager", "LoginItemSetEnabled", "Wayland session"})
        EXPECT_THAT(errors, HasSubstr(line));
    EXPECT_EQ(session_.program->errors().count('\n'), 5) << errors;
    session_.manager.emplace("openbox");
    const TestWindow first({"class=First"});
    EXPECT_TRUE(session_.waitForGroup(1)) << "a window manager has come";
}

TEST_F(Faults, ASecondLaunchLeavesAndASuccessorWaitsForTheEnd) {
    session_.startProgram();
    session_.setRule("First", "xkb:ru");
    const TestWindow first({"class=First"});
    ASSERT_TRUE(session_.waitForGroup(1));
    for (const auto& arguments : {QStringList(), QStringList("--at-login")}) {
        RunningProgram second(QUORVANE_PROGRAM, arguments);
        ASSERT_TRUE(second.waitForEnd());
        EXPECT_EQ(second.exitCode(), 0);
        EXPECT_TRUE(session_.program->isRunning());
    }
    RunningProgram successor(QUORVANE_PROGRAM, {"--new-instance"});
    session_.program->terminate();
    ASSERT_TRUE(session_.program->waitForEnd());
    EXPECT_EQ(session_.program->exitCode(), 0);
    EXPECT_EQ(session_.switchTimes(), 1) << "nothing is lost";
    session_.setRule("Second", "xkb:de");
    const TestWindow next({"class=Second"});
    EXPECT_TRUE(session_.waitForGroup(2));
    EXPECT_TRUE(successor.isRunning());
}

TEST_F(Faults, NoSessionManagerIsAskedWhoCouldStartItAgainOrKeepItWaiting) {
    const auto path = session_.folders.home().toUtf8() + "/sessions";
    const int manager = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_un address{AF_UNIX, {}};
    std::ranges::copy(path, address.sun_path);
    ASSERT_EQ(bind(manager, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0)
        << path.toStdString();
    ASSERT_EQ(listen(manager, 1), 0);
    qputenv("SESSION_MANAGER", "unix/" + QSysInfo::machineHostName().toUtf8() + ":" + path);
    session_.startProgram();
    qunsetenv("SESSION_MANAGER");
    EXPECT_EQ(accept(manager, nullptr, nullptr), -1);
    close(manager);
}

TEST_F(Faults, ToldToEndWhileItRemindsItEndsToo) {
    session_.stores.standardUserDefaults().removeObjectForKey(key::notNeedRemindForAutoStartAtLogin);
    session_.stores.standardUserDefaults().synchronize();
    session_.program.emplace(QUORVANE_PROGRAM);
    ASSERT_TRUE(waitUntil([&] { // A window manager may leave the last one announced, after it has gone.
        const auto process = session_.user.values(session_.activeWindow(), "_NET_WM_PID");
        return process == std::vector{static_cast<std::uint32_t>(session_.program->processId())};
    })) << "the reminder";
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
