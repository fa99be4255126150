// The item in the system tray, with a tray that may not answer.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

#include "linux/support/TestWindow.h"
#include "linux/support/TrayWatcher.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

struct StatusItemOfTray : testing::Test {
    ProgramSession session_;
};

TEST_F(StatusItemOfTray, WaitsForATrayThatDoesNotAnswerYetAndNothingElseDoes) {
    session_.folders.write("data/applications/org.kde.kate.desktop",
                           "[Desktop Entry]\nType=Application\nName=Kate\nExec=kate\n");
    session_.folders.write("data/icons/hicolor/index.theme",
                           "[Icon Theme]\nName=Hicolor\nDirectories=22\n[22]\nSize=22\n");
    const auto name = QString::fromStdString(std::string(maker::bundleIdentifier));
    const auto icon = session_.folders.dataHome() + "/icons/hicolor/22/" + name + ".png";
    ASSERT_TRUE(QDir().mkpath(QFileInfo(icon).path()));
    ASSERT_TRUE(QFile::copy(QUORVANE_SOURCE_DIR "/packaging/linux/icons/22.png", icon));
    TrayWatcher tray;
    session_.startProgram();
    session_.setRule("org.kde.kate", "xkb:ru");
    const TestWindow kate({"class=kate"});
    ASSERT_TRUE(session_.waitForGroup(1));
    EXPECT_EQ(tray.item(), "");
    tray.startAnswering();
    ASSERT_TRUE(waitUntil([&] { return !tray.item().isEmpty(); }));
    EXPECT_TRUE(waitUntil([&] { return tray.toolTip() == "Kate: Russian (rule)"; }))
        << tray.toolTip().toStdString();
    EXPECT_EQ(tray.property("IconName"), name) << "so that the tray can have a picture of its own";

    tray.askItem("org.kde.StatusNotifierItem", "Activate", {100, 100}); // a click on it
    const auto x = XConnection::open();
    EXPECT_TRUE(waitUntil([&] { return std::ranges::any_of(stackedWindows(*x), &StackedWindow::isPopUp); }))
        << "its menu";
}

TEST_F(StatusItemOfTray, IsShownByAnOlderTrayWheneverThatComes) {
    session_.startProgram();
    ASSERT_TRUE(waitUntil([&] { return session_.program->errors().contains("no system tray"); }));
    const RunningProgram tray("trayer", {"--edge", "bottom", "--expand", "true"});
    EXPECT_TRUE(waitUntil([] {
        QProcess windows;
        windows.start("xwininfo", {"-root", "-tree"});
        windows.waitForFinished();
        return windows.readAll().contains("(\"quorvane\" \"Quorvane\")");
    }));
}

} // namespace
} // namespace quorvane
