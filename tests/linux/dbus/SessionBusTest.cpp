#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QProcess>

#include "contracts/DistributedNotificationCenterContract.h"
#include "platform/linux/dbus/BusApplications.h"
#include "platform/linux/dbus/DBusNotificationCenter.h"
#include "platform/linux/dbus/DBusPropertyList.h"
#include "platform/linux/dbus/DaemonConnection.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

constexpr auto interfaceName = "org.example.Notifications";

/// Qt connects a process to its session bus once, so all tests share it.
SessionBus& busOfTests() {
    static SessionBus bus;
    return bus;
}

/// A second program on the bus.
class OtherProgram {
public:
    OtherProgram() : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "other")) {}
    ~OtherProgram() { QDBusConnection::disconnectFromBus("other"); }
    void post(const QVariantList& arguments) {
        auto signal = QDBusMessage::createSignal("/DistributedNotifications", interfaceName, "Posted");
        signal.setArguments(arguments);
        EXPECT_TRUE(bus_.send(signal));
    }
    bool own(const QString& name) { return bus_.registerService(name); }
    bool disown(const QString& name) { return bus_.unregisterService(name); }

private:
    QDBusConnection bus_;
};

class DBusBench : public DistributedNotificationCenterBench {
public:
    DistributedNotificationCenter& center() override { return center_; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    void postFromOutside(const DistributedNotification& notification) override {
        other_.post({QString::fromStdString(notification.name), toDBus(notification.userInfo).toMap()});
    }

private:
    SessionBus& bus_ = busOfTests();
    OtherProgram other_;
    DBusNotificationCenter center_{interfaceName, [] {}};
};

INSTANTIATE_TEST_SUITE_P(DBus, DistributedNotificationCenterContract,
                         testing::Values([] { return std::make_unique<DBusBench>(); }));

TEST(DBusNotificationCenterTest, ReadsWhatOtherToolsSendAndIgnoresTheRest) {
    busOfTests();
    int written = 0;
    DBusNotificationCenter center(interfaceName, [&] { ++written; });
    std::vector<PropertyList> seen;
    const auto subscription =
        center.addObserver("name", [&](const auto& each) { seen.push_back(each.userInfo); });
    OtherProgram other;
    // clang-format off
    const QVariantMap userInfo{
        {"numbers", QVariant::fromValue(QList<int>{1, 2})}, {"texts", QStringList{"a", "b"}},
        {"variant", QVariant::fromValue(QDBusVariant(3))}, {"byte", QVariant::fromValue(uchar{255})},
        {"short", QVariant::fromValue(short{-2})}, {"huge", std::numeric_limits<qulonglong>::max()},
        {"path", QVariant::fromValue(QDBusObjectPath("/unknown"))}};
    const PropertyList::Dictionary info{
        {"numbers", PropertyList::Array{1, 2}}, {"texts", PropertyList::Array{"a", "b"}}, {"variant", 3},
        {"byte", 255}, {"short", -2}, {"huge", 18446744073709551615.0}}, fromScript{{"a", 1}};
    const QList<QVariantList> malformedAndGood{
        {"name", 1}, {1, QVariantMap()}, {"name", "text"}, {}, {"name", userInfo}};
    // clang-format on
    for (const auto& arguments : malformedAndGood)
        other.post(arguments);
    EXPECT_TRUE(waitUntil([&] { return !seen.empty(); }));
    center.post({"name", {}});
    EXPECT_EQ(written, 1);
    EXPECT_TRUE(waitUntil([&] { return seen.size() >= 2; }));
    const QStringList script{"--session", "--type=signal", "/DistributedNotifications",
                             QString(interfaceName) + ".Posted", "string:name"};
    for (const auto& more : {QStringList(), QStringList("dict:string:int32:a,1")})
        EXPECT_EQ(QProcess::execute("dbus-send", script + more), 0);
    EXPECT_TRUE(waitUntil([&] { return seen.size() >= 4; }));
    EXPECT_THAT(seen, testing::ElementsAre(info, PropertyList(), PropertyList(), fromScript));
}

TEST(BusApplicationsTest, FollowsTheNamesSomebodyAskedAbout) {
    busOfTests();
    OtherProgram other;
    ASSERT_TRUE(other.own("org.example.Early"));
    BusApplications applications({"org.example.Early"});
    std::vector<std::string> started;
    const auto subscription = applications.onStart([&](std::string_view id) { started.emplace_back(id); });
    EXPECT_FALSE(applications.isRunning("org.example.Late"));
    EXPECT_TRUE(waitUntil([&] { return applications.isRunning("org.example.Early"); }));
    for (const auto* id : {"", "XTerm", "org..example", ":1.1", "org.example.\xFF", "org.example.a b"})
        EXPECT_FALSE(applications.isRunning(id)) << id;
    ASSERT_TRUE(other.own("org.example.Late"));
    ASSERT_TRUE(other.disown("org.example.Early"));
    EXPECT_TRUE(waitUntil([&] {
        return applications.isRunning("org.example.Late") && !applications.isRunning("org.example.Early");
    }));
    EXPECT_THAT(started, testing::ElementsAre("org.example.Late"));
    EXPECT_THAT(applications.ids(), testing::ElementsAre("org.example.Late"));
}

TEST(DaemonConnectionTest, TellsWhoseConnectionsAreInTheOrderOfTheQuestions) {
    busOfTests();
    const auto own = QDBusConnection::sessionBus().baseService().toStdString();
    const std::string busItself = "org.freedesktop.DBus";
    DaemonConnection connection("org.example.Daemon");
    connection.open(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString());
    std::vector<std::string> told;
    const auto ask = [&](const std::string& whose) {
        connection.askProcess(whose, [&told, whose](int process) {
            if (process > 0) told.push_back(whose);
        });
    };
    ASSERT_TRUE(waitUntil([&] {
        if (told.empty()) ask(own);
        return !told.empty();
    }));
    waitUntil([&] { // Those that were asked meanwhile.
        const auto count = told.size();
        ask(own);
        return told.size() == count + 1;
    });
    told.clear();
    ask(busItself);
    ask(own);
    EXPECT_THAT(told, testing::IsEmpty()) << "what is known waits for what is not";
    EXPECT_TRUE(waitUntil([&] { return told.size() == 2; }));
    ask(own);
    EXPECT_THAT(told, testing::ElementsAre(busItself, own, own)) << "at once";
}

TEST(BusApplicationsTest, ABusThatHangsIsNotWaitedForAndHasNotAnswered) {
    auto& bus = busOfTests();
    OtherProgram other;
    ASSERT_TRUE(other.own("org.example.Running"));
    BusApplications applications;
    bus.stop();
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(applications.isRunning("org.example.Running"));
    EXPECT_THAT(applications.ids(), testing::IsEmpty());
    const auto waited = time.elapsed(); // milliseconds
    bus.resume();
    EXPECT_LT(waited, 200);
    EXPECT_TRUE(waitUntil([&] { return applications.isRunning("org.example.Running"); }));
}

/// Exits with 0 when everything that needs no bus works.
void liveWithoutBus() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    DBusNotificationCenter center(interfaceName, [] {});
    BusApplications applications;
    int delivered = 0;
    const auto subscription = center.addObserver("name", [&](const auto&) { ++delivered; });
    center.post({"name", {}});
    center.deliverLocally({"name", {}});
    const bool isQueued = delivered == 0 && waitUntil([&] { return delivered == 1; });
    std::exit(isQueued && !applications.isRunning("org.freedesktop.DBus") && applications.ids().empty() ? 0
                                                                                                        : 1);
}

TEST(SessionBusDeathTest, TheProgramLivesWithoutABus) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process of its own
    EXPECT_EXIT(liveWithoutBus(), testing::ExitedWithCode(0), testing::HasSubstr("no session bus"));
}

} // namespace
} // namespace quorvane
