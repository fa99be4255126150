// The session of sway, on a real one.

#include <QJsonArray>
#include <QJsonObject>

#include "linux/wayland/SessionContracts.h"
#include "linux/wayland/SessionFaults.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/sway/SwaySession.h"
#include "virtual-desktop/SwayConnection.h"
#include "virtual-desktop/SwayServer.h"

namespace quorvane {
namespace {

class SwayDesktop : public SessionDesktop {
public:
    SwayServer& server() override { return server_; }
    SessionParts parts() override { return session_->parts(); }
    void minimise(const QString& id) override {
        SwayServer::run(QString("[app_id=%1] move scratchpad").arg(id));
    }
    void setLayouts(const QByteArray& layouts, const QByteArray& variants) override {
        configure("input * {\n xkb_layout " + layouts + "\n xkb_variant \"" + variants + "\"\n}\n");
    }
    void takeKeys(const KeyCombination& /*combination*/) override {
        bool isHeardOf = false;
        const auto change = parts().hotKeys.changed.connect([&] { isHeardOf = true; });
        QFile file(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/users-keys");
        file.open(QFile::WriteOnly);
        file.write("set $users Ctrl\nbindsym --locked $users+J nop the users\n");
        file.close();
        configure("include users-keys\n");
        EXPECT_TRUE(waitUntil([&] { return isHeardOf; }));
    }
    void configure(const QByteArray& lines) {
        QFile file(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/sway.config");
        file.open(QFile::WriteOnly | QFile::Append);
        file.write(lines);
        file.close();
        server_.reload();
    }
    void endSession() override { session_.reset(); }
    bool hasOurs() override {
        const auto answer = sway::ask(sway::Question::command, "unbindcode 71").array();
        return answer.first().toObject()["success"].toBool();
    }
    void settle() override { server_.layout(); }

private:
    SwayServer server_;
    std::unique_ptr<WaylandDisplay> display_ = WaylandDisplay::open();
    std::optional<SwaySession> session_{std::in_place, *display_, applications, drawLettersIcon};
};

std::unique_ptr<SessionDesktop> makeDesktop() {
    return std::make_unique<SwayDesktop>();
}

INSTANTIATE_TEST_SUITE_P(Sway, FrontWindowContract, on<SessionWindowListBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, WorkspaceContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, EmptyFrontContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, TextInputSourcesContract, on<SessionSourcesBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, SessionFaults, testing::Values(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, HotKeysContract, on<SessionHotKeysBench>(makeDesktop));

using SwaySessionTest = SessionFaults;
INSTANTIATE_TEST_SUITE_P(Sway, SwaySessionTest, testing::Values(makeDesktop));

TEST_P(SwaySessionTest, AReloadIsNotNoticed) {
    ASSERT_TRUE(waitForLayouts());
    const WaylandWindow window("alpha", "alpha");
    int changes = 0;
    const auto counting = parts_.layouts.selectionChanged.connect([&] { ++changes; });
    ASSERT_TRUE(select("xkb:ru"));
    ASSERT_TRUE(waitUntil([&] { return changes == 1; }));
    SwayServer::run("reload");
    EXPECT_EQ(desktop_->server().layout(), 0U) << "sway forgets it";
    EXPECT_TRUE(waitUntil([&] { return desktop_->server().layout() == 1; }));
    EXPECT_TRUE(f5Fires());
    EXPECT_EQ(selected(), "xkb:ru");
    EXPECT_EQ(changes, 1);
}

TEST_P(SwaySessionTest, HotKeysAreOfTheDefaultModeAndNeverTheUsers) {
    auto& desktop = dynamic_cast<SwayDesktop&>(*desktop_);
    ASSERT_TRUE(waitForLayouts());
    desktop.configure("mode other {\n bindsym x nop\n}\n");
    ASSERT_TRUE(f5Fires());
    int fired = 0, told = 0;
    const auto layouts = parts_.layouts.selectionChanged.connect([&] { ++told; });
    SwayServer::run("mode other");
    SwayServer::run("input type:keyboard xkb_switch_layout 1");
    ASSERT_TRUE(waitUntil([&] { return told > 0; })) << "so that of the mode it was told before";
    const auto hotKey = parts_.hotKeys.registerHotKey({0x61, 0}, [&] { ++fired; });
    SwayServer::run("mode default");
    EXPECT_TRUE(waitUntil([&] {
        desktop_->server().pressTogether({72});
        return fired > 0;
    }));
    // The user takes the other one, and it is given back before anybody has seen that.
    const auto change = parts_.hotKeys.changed.connect([&] { f5_.reset(); });
    desktop.configure("bindcode 71 nop the users\n");
    ASSERT_TRUE(waitUntil([&] { return !f5_; }));
    const auto again = parts_.hotKeys.registerHotKey({0x62, 0}, [&] { fired = -1; });
    EXPECT_TRUE(waitUntil([&] { // F7, asked for after the other was given back.
        desktop_->server().pressTogether({73});
        return fired == -1;
    }));
    EXPECT_TRUE(desktop_->hasOurs()) << "the user's";
}

} // namespace
} // namespace quorvane
