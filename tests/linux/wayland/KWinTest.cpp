// The session of KWin, on a real one.

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDir>

#include "linux/wayland/SessionContracts.h"
#include "linux/wayland/SessionFaults.h"
#include "platform/linux/kwin/KWinSession.h"
#include "platform/linux/qt/LettersIcon.h"
#include "virtual-desktop/KWinServer.h"

namespace quorvane {
namespace {

class KWinDesktop : public SessionDesktop {
public:
    ~KWinDesktop() override {
        session_.reset();
        QDBusConnection::disconnectFromBus("program");
    }
    KWinServer& server() override { return server_; }
    SessionParts parts() override { return session_->parts(); }
    void minimise(const QString& id) override {
        server_.evaluate(QString("workspace.clientList().find(c => String(c.desktopFileName) == '%1')"
                                 ".minimized = true")
                             .arg(id));
    }
    void setLayouts(const QByteArray& layouts, const QByteArray& variants) override {
        QFile file(qEnvironmentVariable("XDG_CONFIG_HOME") + "/kxkbrc");
        file.open(QFile::WriteOnly);
        file.write("[Layout]\nUse=true\nLayoutList=" + layouts + "\nVariantList=" + variants + "\n");
        file.close();
        bus_.send(QDBusMessage::createSignal("/Layouts", "org.kde.keyboard", "reloadConfig"));
    }
    void takeKeys(const KeyCombination& /*combination*/) override {
        const QStringList action{"others", "jump", "Others", "Jump"};
        accel("doRegister", {action});
        accel("setShortcut", {action, QVariant::fromValue(QList<int>{int{Qt::CTRL} | Qt::Key_J}), 6U});
    }
    void endSession() override { session_.reset(); }
    bool hasOurs() override {
        const QStringList component{"quorvane", {}, {}, {}};
        const auto actions = accel("allActionsForComponent", {component}).arguments().value(0);
        auto call = QDBusMessage::createMethodCall("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                                   "isScriptLoaded");
        call << "quorvane";
        const bool isLoaded = bus_.call(call).arguments().value(0).toBool();
        const QDir files(qEnvironmentVariable("XDG_RUNTIME_DIR"));
        return isLoaded || !files.entryList({"*.kwin.js"}).isEmpty() ||
               !qdbus_cast<QList<QStringList>>(actions).isEmpty();
    }
    void settle() override { accel("allMainComponents", {}); }

private:
    /// What a process leaves that was killed: a script, and a hot key.
    bool leave() {
        const auto script = folders.home() + "/left.js";
        QFile(script).open(QFile::WriteOnly);
        auto load = QDBusMessage::createMethodCall("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                                   "loadScript");
        EXPECT_GE(bus_.call(load << script << "quorvane").arguments().value(0, -1).toInt(), 0);
        const QStringList action{"quorvane", "hot-key-99", "Quorvane", "Hot key 100"};
        accel("doRegister", {action});
        accel("setShortcut", {action, QVariant::fromValue(QList<int>{Qt::Key_F5}), 2U});
        return true;
    }
    QDBusMessage accel(const char* method, const QVariantList& arguments) {
        auto call = QDBusMessage::createMethodCall("org.kde.kglobalaccel", "/kglobalaccel",
                                                   "org.kde.KGlobalAccel", method);
        call.setArguments(arguments);
        auto answer = bus_.call(call);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
        return answer;
    }

    KWinServer server_;
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "program");
    bool hasLeft_ = leave();
    std::unique_ptr<WaylandDisplay> display_ = WaylandDisplay::open();
    std::optional<KWinSession> session_{std::in_place, bus_, *display_, applications, drawLettersIcon};
};

std::unique_ptr<SessionDesktop> makeDesktop() {
    return std::make_unique<KWinDesktop>();
}

INSTANTIATE_TEST_SUITE_P(KWin, FrontWindowContract, on<SessionWindowListBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(KWin, WorkspaceContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(KWin, EmptyFrontContract, on<SessionWorkspaceBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(KWin, TextInputSourcesContract, on<SessionSourcesBench>(makeDesktop));
INSTANTIATE_TEST_SUITE_P(KWin, SessionFaults, testing::Values(makeDesktop));
INSTANTIATE_TEST_SUITE_P(KWin, HotKeysContract, on<SessionHotKeysBench>(makeDesktop));

using KWinSessionTest = SessionFaults;
INSTANTIATE_TEST_SUITE_P(KWin, KWinSessionTest, testing::Values(makeDesktop));

TEST_P(KWinSessionTest, PlasmasPanelsAreNoProgramOfTheUsers) {
    const WaylandWindow alpha("alpha"), panel("panel", "plasmashell"), beta("beta");
    ASSERT_TRUE(waitUntil([&] { return front() == "beta"; }));
    std::vector<ActivationPolicy> policies;
    for (const auto* id : {"alpha", "plasmashell", "beta"})
        for (const auto& each : desktop_->applications.workspace.runningApplicationsWithBundleIdentifier(id))
            policies.push_back(each.activationPolicy);
    using enum ActivationPolicy;
    EXPECT_THAT(policies, testing::ElementsAre(regular, accessory, regular));
}

} // namespace
} // namespace quorvane
