#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

#include "linux/support/Keyboard.h"
#include "platform/linux/desktop-files/ApplicationFiles.h"
#include "platform/linux/open-panel/QtOpenPanel.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {
namespace {

using Choice = std::optional<std::string>;

class ApplicationPanelTest : public testing::Test {
protected:
    ApplicationPanelTest() {
        install("plain", "Name=Zeta\nExec=plain\n");
        install("sub/deep", "Name=deep\nExec=alpha %U\n");
        install("rofi", "Name=Rofi\nExec=rofi\n");
        install("hidden", "Name=Never\nNoDisplay=true\n");
        install("elsewhere", "Name=Never\nOnlyShowIn=NoSuchDesktop;\n");
        install("missing", "Name=Never\nTryExec=no-such-program\n");
        install("org.kde.krunner", "Name=KRunner\nNoDisplay=true\n"); // A launcher, which no menu shows.
        qputenv("PATH", (folders_.home() + "/bin").toUtf8());
        program("bin/dmenu");
    }
    ~ApplicationPanelTest() override { qputenv("PATH", path_); }
    void install(const QString& id, const QByteArray& lines) {
        folders_.write("data/applications/" + id + ".desktop", "[Desktop Entry]\nType=Application\n" + lines);
    }
    /// Opens the panel and waits until it has the keys.
    void open() {
        panel_.beginChoosingApplication([this](const Choice& choice) { chosen_.push_back(choice); });
        ASSERT_TRUE(waitUntil([] { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }));
    }
    void program(const QString& file) {
        QFile::setPermissions(folders_.write(file, "#!/bin/sh\n"), QFile::ReadOwner | QFile::ExeOwner);
    }
    static bool isClosed() {
        return waitUntil([] { return !QApplication::activeWindow(); });
    }

    const QByteArray path_ = qgetenv("PATH");
    ScratchFolders folders_;
    DesktopEntries entries_ = DesktopEntries::ofEnvironment();
    QtOpenPanel panel_{entries_};
    XClient user_;
    std::vector<Choice> chosen_;
};

constexpr std::uint8_t a = 38, d = 40, h = 43, k = 45, l = 46, m = 58, p = 33, r = 27;

TEST_F(ApplicationPanelTest, IsUsedByKeyboard) {
    struct {
        std::initializer_list<std::uint8_t> keys;
        std::vector<Choice> chosen;
    } const cases[] = {
        {{enter}, {"sub-deep"}},
        {{down, down, down, down, down, enter}, {"plain"}},
        {{d, m, enter}, {"dmenu"}},
        {{k, r, enter}, {"org.kde.krunner"}},
        {{a, l, p, enter}, {"sub-deep"}},
        {{h, h, enter, escape}, {}},
        {{escape}, {}},
    };
    for (const auto& each : cases) {
        chosen_.clear();
        open();
        for (const auto key : each.keys)
            user_.pressTogether({key});
        EXPECT_TRUE(isClosed());
        EXPECT_EQ(chosen_, each.chosen) << std::size(each.keys);
    }
}

TEST_F(ApplicationPanelTest, IsOneAndTellsWhoAskedLastOfAFileFromElsewhere) {
    panel_.beginChoosingApplication([](const auto&) { ADD_FAILURE(); });
    open();
    auto* panel = QApplication::activeWindow();
    for (auto* button : panel->findChildren<QPushButton*>())
        if (button->text() == "Other…") button->click();
    ASSERT_TRUE(waitUntil([] { return qobject_cast<QFileDialog*>(QApplication::activeWindow()); }));
    Q_EMIT panel->findChild<QFileDialog*>()->fileSelected(
        folders_.write("copy/rofi.desktop", "[Desktop Entry]\nType=Application\nName=N\n"));
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(chosen_, std::vector<Choice>{"rofi"});
}

TEST_F(ApplicationPanelTest, TellsTheApplicationOfAFile) {
    const auto path = [&](const char* file) { return folders_.home() + "/" + file; };
    program("bin/plain");
    program("bin/lonely");
    program("bin/dmenu.other");
    QFile::remove(path("bin/dmenu"));
    QFile::link(path("bin/dmenu.other"), path("bin/dmenu"));
    QFile::link(path("data/applications/sub/deep.desktop"), path("link.desktop"));
    QFile::link(path("nowhere"), path("dangling"));
    folders_.write("copy/other.desktop", "[Desktop Entry]\nType=Application\nName=N\nStartupWMClass=Other\n");
    folders_.write("broken.desktop", "\x01\x02");
    const std::pair<const char*, Choice> files[] = {
        {"data/applications/sub/deep.desktop", "sub-deep"},
        {"link.desktop", "sub-deep"},
        {"copy/other.desktop", "Other"},
        {"bin/plain", "plain"},
        {"bin/lonely", "lonely"},
        {"bin/dmenu", "dmenu"},
        {"dangling", std::nullopt},
        {"broken.desktop", std::nullopt},
        {"bin", std::nullopt},
        {"missing", std::nullopt},
    };
    for (const auto& [file, id] : files)
        EXPECT_EQ(bundleIdentifierOfFile(entries_, path(file).toStdString()), id) << file;
}

} // namespace
} // namespace quorvane
