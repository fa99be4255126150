// The session of sway, on a real one.

#include "linux/wayland/SessionContracts.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/sway/SwaySession.h"
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
        configure("set $users Ctrl\nbindsym --locked $users+J nop the users\n");
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
    void settle() override { server_.layout(); }

private:
    SwayServer server_;
    std::unique_ptr<WaylandDisplay> display_ = WaylandDisplay::open();
    std::optional<SwaySession> session_{std::in_place, *display_, applications, drawLettersIcon};
};

std::unique_ptr<SessionDesktop> makeDesktop() {
    return std::make_unique<SwayDesktop>();
}

INSTANTIATE_TEST_SUITE_P(Sway, WorkspaceContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, TextInputSourcesContract, on<SessionSourcesBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(Sway, HotKeysContract, on<SessionHotKeysBench>(makeDesktop));

} // namespace
} // namespace quorvane
