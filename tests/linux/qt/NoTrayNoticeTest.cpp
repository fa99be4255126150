#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/qt/NoTrayNotice.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

/// Stands in for the desktop's server of notifications, and for a tray that does not answer yet.
class Panel : public QDBusVirtualObject {
public:
    Panel() {
        bus.registerVirtualObject("/", this, QDBusConnection::SubPath);
        EXPECT_TRUE(bus.registerService(notifications));
    }
    ~Panel() override {
        bus.unregisterObject("/", QDBusConnection::UnregisterTree);
        QDBusConnection::disconnectFromBus(bus.name());
    }
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*bus*/) override {
        if (message.interface() != notifications || message.signature() != "susssasa{sv}i") return true;
        told.push_back(message.arguments().at(4).toString().toStdString());
        return bus.send(message.createReply(1U));
    }

    const QString notifications = "org.freedesktop.Notifications", tray = "org.kde.StatusNotifierWatcher";
    QDBusConnection bus =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), "panel");
    std::vector<std::string> told;
};

TEST(NoTrayNotice, IsGivenOnceEverAndOnlyWhereNoTrayComes) {
    LinuxUserDefaults stores({}, "test");
    auto& defaults = stores.standardUserDefaults();
    // From the start of a program to long after it has found no tray.
    const auto run = [&](const std::function<void()>& meanwhile = [] {}) {
        constexpr auto patience = 300ms;
        TrayReadiness tray(nullptr, [] {});
        const NoTrayNotice notice(tray, defaults, patience);
        EXPECT_TRUE(waitUntil([&] { return tray.isMissing(); }));
        meanwhile();
        const QDeadlineTimer end(2 * patience);
        waitUntil([&] { return end.hasExpired(); });
    };
    run();
    Panel panel;
    run([&] { EXPECT_TRUE(panel.bus.registerService(panel.tray)); });
    panel.bus.unregisterService(panel.tray);
    EXPECT_THAT(panel.told, ElementsAre()) << "there was no server, and then a tray";
    run([&] { EXPECT_TRUE(waitUntil([&] { return !panel.told.empty(); })); });
    run();
    EXPECT_THAT(panel.told, ElementsAre("To open its preferences, launch Quorvane once more."));
}

} // namespace
} // namespace quorvane
