#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/session/ShellMessages.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

struct SourceOnBus {
    QString id, name, shortName;
};
QDBusArgument& operator<<(QDBusArgument& argument, const SourceOnBus& source) {
    argument.beginStructure();
    argument << source.id << source.name << source.shortName;
    argument.endStructure();
    return argument;
}
const QDBusArgument& operator>>(const QDBusArgument& argument, SourceOnBus&) {
    return argument;
}

namespace {

constexpr auto shellName = "org.example.Shell";

/// A connection to the bus of now: a shell, or nobody, or who listens.
struct Caller {
    explicit Caller(const QString& name)
        : bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name)) {}
    ~Caller() { QDBusConnection::disconnectFromBus(bus.name()); }
    void become(const QString& name) { EXPECT_TRUE(bus.registerService(name)); }
    void tell(const QString& method, const QVariantList& arguments) {
        auto message =
            QDBusMessage::createMethodCall(QDBusConnection("listener").baseService(), ShellMessages::path(),
                                           ShellMessages::interface(), method);
        message.setArguments(arguments);
        bus.asyncCall(message);
    }

    QDBusConnection bus;
};

TEST(ShellMessagesTest, HearsOnlyTheShellAndOnlyWhatIsWellFormed) {
    SessionBus bus;
    qDBusRegisterMetaType<SourceOnBus>();
    qDBusRegisterMetaType<QList<SourceOnBus>>();
    const Caller listener("listener");
    ShellMessages messages(listener.bus, shellName);
    std::vector<std::string> heard;
    const auto note = [&heard](const std::string& what) { heard.push_back(what); };
    const Subscription notes[] = {
        messages.windowChanged.connect([&](WindowId window, const CompositorWindow& now) {
            note("changed " + std::to_string(window) + ' ' + now.facts.desktopFile + ' ' + now.facts.wmClass +
                 ' ' + now.title + ' ' + std::to_string(now.facts.pid) + (now.isHidden ? " hidden" : ""));
            EXPECT_EQ(now.bounds, (Rect{-1, 2, 3, 4}));
        }),
        messages.windowClosed.connect([&](WindowId window) { note("closed " + std::to_string(window)); }),
        messages.windowActivated.connect([&](WindowId window) { note("front " + std::to_string(window)); }),
        messages.launcherChanged.connect(
            [&](const auto& id, bool isOpen) { note(id + (isOpen ? " opened" : " closed")); }),
        messages.hotKeyPressed.connect([&](unsigned number) { note("key " + std::to_string(number)); }),
        messages.sourcesChanged.connect([&](const auto& sources, const auto& current) {
            EXPECT_THAT(sources, testing::ElementsAre(ShellSource{"xkb:us", "English", "en"}));
            note("sources " + current);
        }),
        messages.sourceChanged.connect([&](const auto& current) { note("source " + current); }),
        messages.shellCame.connect([&] { note("came"); }),
        messages.shellWent.connect([&] { note("went"); })};

    Caller stranger("stranger");
    stranger.tell("WindowActivated", {"a"});
    {
        Caller shell("shell");
        shell.become(shellName);
        ASSERT_TRUE(waitUntil([&] { return messages.isShellThere(); }));
        stranger.tell("WindowActivated", {"a"});
        const QVariantList window{"a", "A.desktop", "A", "title", 7, true, -1, 2, 3, 4};
        shell.tell("WindowChanged", window);
        shell.tell("WindowChanged", window.mid(1));
        shell.tell("WindowChangedTo", window.mid(0, 6) + QVariantList{"-1 2 3 4"});
        shell.tell("NoSuchMethod", {});
        shell.tell("WindowActivated", {"b"});
        shell.tell("WindowActivated", {1});
        shell.tell("WindowActivated", {""});
        shell.tell("WindowClosed", {"a"});
        shell.tell("WindowClosed", {"a"});
        shell.tell("LauncherChanged", {"overview", true});
        shell.tell("HotKeyPressed", {-1});
        shell.tell("HotKeyPressed", {1});
        const QList<SourceOnBus> sources{{"xkb:us", "English", "en"}};
        shell.tell("SourcesChanged", {QVariant::fromValue(sources), "xkb:us"});
        shell.tell("SourceChanged", {"xkb:ru"});
        EXPECT_TRUE(waitUntil([&] { return !heard.empty() && heard.back() == "source xkb:ru"; }));
    }
    Caller next("next");
    next.become(shellName);
    next.tell("WindowActivated", {"b"});
    EXPECT_TRUE(waitUntil([&] { return heard.back().starts_with("front 3"); })) << "a window of another one";
    EXPECT_THAT(heard, testing::ElementsAre("came", "changed 1 A.desktop A title 7 hidden",
                                            "changed 1 A.desktop A title 7 hidden", "front 2", "front 0",
                                            "closed 1", "overview opened", "key 1", "sources xkb:us",
                                            "source xkb:ru", "went", "came", "front 3"));
    const ShellMessages late(QDBusConnection::sessionBus(), shellName);
    EXPECT_TRUE(waitUntil([&] { return late.isShellThere(); })) << "one that was there before";
}

TEST(ShellMessagesTest, HearsWhatWasSaidBeforeTheBusHasToldWhoTheShellIs) {
    SessionBus bus;
    const Caller listener("listener");
    Caller shell("shell"), stranger("stranger");
    shell.become(shellName);
    bus.stop(); // It takes what it is given in this order.
    stranger.tell("SourceChanged", {"xkb:de"});
    shell.tell("SourceChanged", {"xkb:ru"});
    ShellMessages messages(listener.bus, shellName);
    std::vector<std::string> heard;
    const Subscription notes[] = {
        messages.shellCame.connect([&] { heard.emplace_back("came"); }),
        messages.sourceChanged.connect([&](const auto& source) { heard.push_back(source); })};
    bus.resume();
    EXPECT_TRUE(waitUntil([&] { return heard.size() > 1; }));
    EXPECT_THAT(heard, testing::ElementsAre("came", "xkb:ru"));
}

} // namespace
} // namespace quorvane
