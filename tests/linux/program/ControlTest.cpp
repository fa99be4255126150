// The command-line tool, with the running program and without it.

#include <filesystem>
#include <fstream>

#include <QDirIterator>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/ShortcutText.h"
#include "linux/support/TestWindow.h"
#include "platform/linux/preferences/KeyNames.h"
#include "platform/linux/quorvanectl/Doctor.h"
#include "platform/linux/quorvanectl/LayoutKeepers.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/keyboard/KeyboardMap.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

struct Answer {
    int status;
    std::string said;
};

Answer ask(const QStringList& arguments, const QByteArray& input = {}) {
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(QUORVANECTL, arguments);
    tool.write(input);
    tool.closeWriteChannel();
    EXPECT_TRUE(tool.waitForFinished()) << arguments.join(' ').toStdString();
    return {tool.exitCode(), tool.readAll().toStdString()};
}

/// Every file in it, by its path.
std::map<QString, QByteArray> folderContents(const QString& folder) {
    std::map<QString, QByteArray> contents;
    for (QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        contents[file.fileName()] = file.readAll();
    }
    return contents;
}

struct Control : testing::Test {
    ProgramSession session_;
};

TEST_F(Control, AnswersAndChangesWhatTheProgramDoesAtOnce) {
    session_.folders.write(
        "data/applications/org.maker.Editor.desktop",
        "[Desktop Entry]\nType=Application\nName=Editor\nExec=editor\nStartupWMClass=Wanted\n");
    session_.startProgram();
    const TestWindow window({"class=Wanted"}), other({"class=Other"});
    const struct {
        QStringList arguments;
        int status;
        const char* said;
    } cases[] = {
        {{"rule", "editor", "russian"}, 0, "Russian (xkb:ru)\n"},
        {{"why", "Editor"}, 0, "Editor (org.maker.Editor): Russian (xkb:ru), by its rule\n"},
        {{"select", "German"}, 0, ""},
        {{"sources"}, 0, "xkb:de\tGerman\tcurrent\n"},
        {{"apps"}, 0, "org.maker.Editor\tEditor\trunning\n"},
        {{"shortcut", "german", "Ctrl+Alt+G"}, 0, "Ctrl+Alt+G\n"},
        {{"status"}, 0, "known by its class \"Other\"\n"},
        {{"status"}, 0, "sources from\tX11\n"},
        {{"rules"}, 0, "org.maker.Editor\tEditor\txkb:ru\tRussian\n"},
        {{"rule", "editor", "x"}, 2, "quorvanectl: unknown input source \"x\"\n"},
        {{"rule"}, 2, "quorvanectl: no such command; quorvanectl --help\n"},
        {{"--json", "default", "us"}, 0, "\"identifier\": \"xkb:us\""},
    };
    for (const auto& [arguments, status, said] : cases) {
        const auto answer = ask(arguments);
        EXPECT_EQ(answer.status, status) << arguments.join(' ').toStdString();
        EXPECT_THAT(answer.said, HasSubstr(said));
    }
    const auto x = XConnection::open();
    const auto printed = KeyNames(readTypedKeysyms(*x));
    for (const auto key : QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890`-=[];'\\,./"))
        EXPECT_EQ(printed.nameOf(shortcutOfText("Ctrl+" + QString(key).toStdString())->keyCode), key);
    session_.type({37, 64, 42}); // Control, Alt, G
    EXPECT_TRUE(session_.waitForGroup(2));

    QProcess watching;
    watching.start(QUORVANECTL, {"watch"});
    EXPECT_TRUE(waitUntil([&] { // It says nothing until there is something to say.
        session_.user.activate(other.window());
        session_.user.activate(window.window());
        watching.waitForReadyRead(100);
        return watching.peek(10'000).contains("org.maker.Editor\trule\txkb:ru\t");
    }));
    watching.terminate();
    EXPECT_TRUE(watching.waitForFinished());
    EXPECT_EQ(watching.exitCode(), 0) << "a clean end when it is interrupted";

    ASSERT_TRUE(session_.waitForGroup(1));
    EXPECT_EQ(ask({"pause"}).status, 0);
    session_.user.activate(other.window());
    ASSERT_TRUE(
        waitUntil([&] { return QString::fromStdString(ask({"status"}).said).contains("in front\tOther"); }));
    EXPECT_EQ(session_.group(), 1U);
    EXPECT_EQ(ask({"resume"}).status, 0);
    EXPECT_TRUE(session_.waitForGroup(0)) << "the default source";

    session_.program.reset();
    session_.program.emplace(QUORVANE_PROGRAM, QStringList{"--paused-until=0"});
    EXPECT_TRUE(
        waitUntil([] { return ask({"status"}).said.find("switching\tpaused\n") != std::string::npos; }));
}

TEST_F(Control, SetsWithoutTheProgramWhatCountsWhenItRuns) {
    for (const bool hasBus : {true, false}) {
        if (!hasBus) qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
        for (const auto* command : {"status", "sources", "watch", "pause"})
            EXPECT_EQ(ask({command}).status, 3) << command;
        EXPECT_EQ(ask({"select", "us"}).said, "quorvanectl: Quorvane does not run\n");
        EXPECT_EQ(ask({"rule", "rofi", "Russian"}).said, "quorvanectl: unknown input source \"Russian\"\n");
        EXPECT_EQ(ask({"rule", "rofi", hasBus ? "xkb:de" : "xkb:ru"}).status, 0);
        EXPECT_THAT(ask({"doctor"}).said,
                    HasSubstr(hasBus ? "Quorvane does not run: start" : "there is no session bus"));
    }
    EXPECT_EQ(session_.shared()->objectForKey(key::autoInput)["rofi"]["id"], PropertyList("xkb:ru"));
    const auto exported = ask({"export"});
    EXPECT_EQ(ask({"defaults", "delete", "standard", "autoInput"}).status, 0);
    EXPECT_EQ(ask({"import", "-"}, exported.said.substr(0, exported.said.size() / 2).c_str()).status, 1);
    EXPECT_EQ(ask({"rules"}).said, "") << "half a file changes nothing";
    EXPECT_EQ(ask({"import", "-"}, exported.said.c_str()).said, "+\trules rofi\t{id: xkb:ru}\n");
    EXPECT_EQ(ask({"export"}).said, exported.said);
    EXPECT_EQ(ask({"import", "/nowhere"}).status, 1);
}

TEST_F(Control, ASelfCheckTellsHowTheDesktopIsAndChangesNothing) {
    session_.folders.write("config/autostart/" + QString::fromUtf8(maker::bundleIdentifier.data()) +
                               ".desktop",
                           "[Desktop Entry]\nExec=program\nHidden = true\n");
    const auto file = session_.folders.write("data/applications/org.maker.Editor.desktop",
                                             "[Desktop Entry]\nType=Application\nName=E\nExec=e\n");
    auto& standard = session_.stores.standardUserDefaults();
    setRuleInput(standard, file.toStdString(), "xkb:ru"); // The program would store it as the editor's.
    const auto settings = folderContents(session_.folders.home() + "/config");
    for (const bool isAlone : {true, false}) {
        if (!isAlone) session_.startProgram();
        const TestWindow window({"class=Wanted", "title=a secret"});
        RunningProgram check(QUORVANE_PROGRAM, {"--self-check"});
        ASSERT_TRUE(waitUntil([&] { return check.output().contains("looking for"); }));
        const TestWindow other({"class=Other", "title=another secret"});
        ASSERT_TRUE(check.waitForEnd());
        EXPECT_EQ(check.exitCode(), 0);
        const auto said = check.output().toStdString();
        for (const auto* line :
             {isAlone ? "another instance  none\n" : "another instance  runs\n", "sources from      X11\n",
              "current source    English (US) (xkb:us)\n", "in front          Other, process ",
              "window            Wanted, layer 0, ", "login item        off\n", "F20: granted\n",
              "own message       came back\n", "events            activated "})
            EXPECT_THAT(said, HasSubstr(line));
        EXPECT_THAT(said, testing::Not(HasSubstr("secret")));
        if (isAlone) {
            EXPECT_EQ(folderContents(session_.folders.home() + "/config"), settings);
        }
    }
    EXPECT_EQ(session_.group(), 0U);
}

TEST(Tool, LoadsNothingToDrawWith) {
    QProcess ldd;
    ldd.start("ldd", {QUORVANECTL});
    ASSERT_TRUE(ldd.waitForFinished());
    const auto libraries = ldd.readAll().toStdString();
    EXPECT_THAT(libraries, HasSubstr("libQt6DBus"));
    for (const auto* drawing : {"Widgets", "Qt6Gui", "libGL", "libEGL"})
        EXPECT_THAT(libraries, testing::Not(HasSubstr(drawing)));
}

TEST(Doctor, KnowsWhatOfADesktopKeepsLayouts) {
    const std::string panel = "xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml";
    const auto plugIn = [](const char* policy) {
        return std::string("<channel><property name='plugins'><property name='plugin-1' value='pager'/>"
                           "<property name='plugin-7' type='string' value='xkb'>") +
               policy + "</property></property></channel>";
    };
    const struct {
        const char* desktop;
        std::string file, contents, keeper;
    } cases[] = {
        {"KDE", "kxkbrc", "[Layout]\nUse=true\nSwitchMode=Window\n", "Keyboard settings"},
        {"KDE", "kxkbrc", "[Layout]\nUse=false\nSwitchMode=Window\n", ""},
        {"KDE", "kxkbrc", "[Layout]\nUse=true\nLayoutList=us,ru\n", ""},
        {"KDE", "none", "", ""},
        {"GNOME:KDE", "kxkbrc", "[Layout]\nUse=true\nSwitchMode=WinClass\n", "Keyboard settings"},
        {"XFCE", "kxkbrc", "[Layout]\nUse=true\nSwitchMode=Window\n", ""},
        {"LXQt", "lxqt/panel.conf", "[tray]\ntype=tray\n[kb2]\nkeeper_type=window\n", "Keyboard Indicator"},
        {"LXQt", "lxqt/panel.conf", "[kb2]\nkeeper_type=global\n", ""},
        {"LXQt", "lxqt/panel.conf", "[kb2]\ntype=kbindicator\n", ""},
        {"XFCE", panel, plugIn(""), "Keyboard Layouts"},
        {"XFCE", panel, plugIn("<property name='group-policy' type='int' value='1'/>"), "Keyboard Layouts"},
        {"XFCE", panel, plugIn("<property name='group-policy' type='int' value='0'/>"), ""},
        {"XFCE", panel, "<channel><property name='plugin-1' value='pager'/></channel>", ""},
        {"XFCE", panel, "<channel", ""},
    };
    for (const auto& [desktop, file, contents, keeper] : cases) {
        const QTemporaryDir folder;
        const auto path = std::filesystem::path(folder.path().toStdString()) / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << contents;
        const auto found = layoutKeeper(desktop, folder.path());
        EXPECT_TRUE(keeper.empty() ? found.empty() : found.find(keeper) != std::string::npos)
            << desktop << ", " << contents << ": " << found;
    }
}

TEST(Doctor, FindsEachFaultAlone) {
    using Dictionary = PropertyList::Dictionary;
    const auto status = [](const char* key, PropertyList value) -> PropertyList {
        return Dictionary{{"provider", "X11"}, {key, std::move(value)}};
    };
    const PropertyList well = status("isPaused", false);
    EXPECT_TRUE(diagnose({.status = well}).empty());
    EXPECT_TRUE(diagnose({.inputMethod = "ibus", .status = Dictionary{{"provider", "IBus"}}}).empty());
    const std::pair<Symptoms, const char*> cases[] = {
        {{.status = {}}, "does not run"},
        {{.hasSessionBus = false}, "session bus"},
        {{.hasXServer = false, .hasTray = false, .status = well}, "X server"},
        {{.session = SessionKind::otherWayland, .status = well}, "Wayland"},
        {{.session = SessionKind::sway, .hasTray = false, .status = well}, "tray"},
        {{.hasWindowManager = false, .status = well}, "window manager"},
        {{.hasTray = false, .status = well}, "tray"},
        {{.declaredLayouts = 5, .status = well}, "more than four"},
        {{.inputMethod = "ibus", .status = well}, "IBus"},
        {{.inputMethod = "fcitx", .status = well}, "Fcitx5"},
        {{.otherSwitchers = {"kbdd"}, .status = well}, "kbdd"},
        {{.layoutKeeper = "the panel", .status = well}, "the panel"},
        {{.settingsFolder = "/x", .isSettingsFolderWritable = false, .status = well}, "/x"},
        {{.status = status("isPaused", true)}, "paused"},
        {{.status = status("settingsTrouble", "no room")}, "no room"},
        {{.status = status("refusedShortcuts", PropertyList::Array{Dictionary{{"name", "German"}}})},
         "German"},
    };
    for (const auto& [symptoms, problem] : cases) {
        const auto findings = diagnose(symptoms);
        ASSERT_EQ(findings.size(), 1U) << problem;
        EXPECT_THAT(findings[0].problem, HasSubstr(problem));
        EXPECT_FALSE(findings[0].remedy.empty());
    }
}

} // namespace
} // namespace quorvane
