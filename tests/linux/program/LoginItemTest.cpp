#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "platform/linux/AutostartLoginItems.h"
#include "settings/Keys.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class AutostartEntry : public testing::Test {
protected:
    bool setEnabled(const QString& program, bool isEnabled = true) {
        return items(program).setEnabled("item", isEnabled);
    }
    bool isEnabled() const { return items("/any").isEnabled("item").value(); }
    AutostartLoginItems items(const QString& program) const {
        return {folder().toStdString(), "program", program.toStdString()};
    }
    QString folder() const { return folders_.home() + "/config/autostart"; }
    QString entry() const { return folder() + "/program.desktop"; }
    QString formerEntry() const { return folder() + "/item.desktop"; }

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

TEST_F(AutostartEntry, KeepsTheUsersOwnSwitchUntilItIsMadeAnewAndIsRefusedWhereNothingCanBeWritten) {
    const QByteArray users =
        "[Desktop Entry]\nExec=/old/place --at-login\nHidden=true\nX-GNOME-Autostart-enabled = false\n"
        "[Other]\nHidden=of another group\n";
    for (const auto* name : {"program", "item"}) { // as it is named, and as it once was
        folders_.write(QString("config/autostart/%1.desktop").arg(name), users);
        EXPECT_FALSE(isEnabled()) << "the user has switched it off";
        ASSERT_TRUE(setEnabled("/new/place"));
        EXPECT_FALSE(QFile::exists(formerEntry()));
        EXPECT_FALSE(isEnabled());
        const auto kept = textOf(entry()).toStdString();
        EXPECT_THAT(kept, testing::HasSubstr("\nExec=\"/new/place\" --at-login\n"));
        EXPECT_THAT(kept, testing::EndsWith("\nHidden=true\nX-GNOME-Autostart-enabled = false\n"));
        folders_.write("config/autostart/item.desktop", users);
        for (int time = 0; time < 2; ++time)
            EXPECT_TRUE(setEnabled("/new/place", false)) << "also if it is so already";
        EXPECT_TRUE(QDir(folder()).isEmpty());
        EXPECT_FALSE(isEnabled());
    }
    folders_.write("config/autostart/program.desktop", "[Desktop Entry]\nExec=program\n");
    EXPECT_TRUE(setEnabled("/new/place", false));
    EXPECT_TRUE(QFile::exists(entry()) && isEnabled()) << "the user's own";
    ASSERT_TRUE(setEnabled("/new/place"));
    EXPECT_FALSE(textOf(entry()).contains("Hidden"));
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    folders_.write("config/autostart", "a file where the folder should be");
    EXPECT_FALSE(setEnabled("/new/place"));
}

TEST(LoginItem, FollowsTheSetting) {
    ProgramSession session;
    auto& standard = session.stores.standardUserDefaults();
    standard.setBool(true, key::autoStartAtLogin);
    standard.synchronize();
    session.startProgram();
    const auto file = QString::fromStdString(std::string(maker::bundleIdentifier) + ".desktop");
    EXPECT_TRUE(textOf(session.folders.home() + "/config/autostart/" + file).contains(QUORVANE_PROGRAM));
}

} // namespace
} // namespace quorvane
