#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "linux/program/ProgramSession.h"
#include "platform/linux/AutostartLoginItems.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class AutostartEntry : public testing::Test {
protected:
    bool setEnabled(const QString& program, bool enabled = true) {
        return AutostartLoginItems(folder().toStdString(), program.toStdString()).setEnabled("item", enabled);
    }
    QString folder() const { return folders_.home() + "/config/autostart"; }
    QString entry() const { return folder() + "/item.desktop"; }

    ScratchFolders folders_;
};

TEST_F(AutostartEntry, StartsTheProgramWhereverItIs) {
    const QString places[] = {"plain", "with space", "a\"quote' and $HOME `ls` \\back\\slash"};
    for (const auto& place : places) {
        const auto program =
            folders_.write(place + "/pro gram", "#!/bin/sh\nprintf '%s\\n' \"$0 $*\" > \"$0.ran\"\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        ASSERT_TRUE(setEnabled(program)) << "and again, where the program moved";
        ASSERT_EQ(QProcess::execute("gio", {"launch", entry()}), 0) << textOf(entry()).toStdString();
        EXPECT_TRUE(waitUntil([&] { return textOf(program + ".ran") == program + " --at-login\n"; }))
            << textOf(program + ".ran").toStdString();
    }
}

TEST_F(AutostartEntry, KeepsTheUsersOwnSwitchUntilItIsMadeAnew) {
    const QByteArray users =
        "[Desktop Entry]\nExec=/old/place\nHidden=true\nX-GNOME-Autostart-enabled = false\n"
        "[Other]\nHidden=of another group\n";
    folders_.write("config/autostart/item.desktop", users);
    ASSERT_TRUE(setEnabled("/new/place"));
    const auto kept = textOf(entry()).toStdString();
    EXPECT_THAT(kept, testing::HasSubstr("\nExec=\"/new/place\" --at-login\n"));
    EXPECT_THAT(kept, testing::EndsWith("\nHidden=true\nX-GNOME-Autostart-enabled = false\n"));
    EXPECT_TRUE(setEnabled("/new/place", false));
    EXPECT_FALSE(QFile::exists(entry()));
    EXPECT_TRUE(setEnabled("/new/place", false)) << "it is disabled already";
    ASSERT_TRUE(setEnabled("/new/place"));
    EXPECT_THAT(textOf(entry()).toStdString(), testing::Not(testing::HasSubstr("Hidden")));
}

TEST_F(AutostartEntry, IsRefusedWhereNothingCanBeWritten) {
    folders_.write("config/autostart", "a file where the folder should be");
    EXPECT_FALSE(setEnabled("/a/program"));
    EXPECT_FALSE(QDir(folder()).exists());
}

TEST(LoginItem, FollowsTheSettingAndTheProgramLeavesQuietlyWhenItRunsAlready) {
    ProgramSession session;
    auto& standard = session.stores.standardUserDefaults();
    standard.setBool(true, key::autoStartAtLogin);
    standard.synchronize();
    session.startProgram();
    const QString entry = QString("%1/config/autostart/%2.desktop")
                              .arg(session.folders.home(), std::string(maker::loginItemIdentifier).c_str());
    EXPECT_THAT(textOf(entry).toStdString(), testing::HasSubstr(QUORVANE_PROGRAM));
    TestProgram second(QUORVANE_PROGRAM, {"--at-login"});
    ASSERT_TRUE(second.waitForEnd());
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(session.program->isRunning());
}

} // namespace
} // namespace quorvane
