#include <set>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QTimer>
#include <unistd.h>

#include "contracts/TextInputSourcesContract.h"
#include "platform/linux/dbus/BusMonitor.h"
#include "platform/linux/input-methods/SessionInputSources.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5InputSources.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"
#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "virtual-desktop/Fcitx5Daemon.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {
namespace {

/// A program that can be typed in, without a window, in this process. Has a context, and the focus if it is
/// in front, when this is made.
class Fcitx5Client {
public:
    Fcitx5Client(Fcitx5Daemon& daemon, const QString& program, bool isInFront = true) : daemon_(&daemon) {
        const Fcitx5Daemon::Items hints{{"program", program}, {"display", "x11:"}};
        const auto answer = daemon.call("/org/freedesktop/portal/inputmethod", "org.fcitx.Fcitx.InputMethod1",
                                        "CreateInputContext", {QVariant::fromValue(hints)});
        path_ = answer.arguments().value(0).value<QDBusObjectPath>().path();
        if (isInFront) tell("FocusIn");
    }
    void tell(const QString& what) { daemon_->call(path_, "org.fcitx.Fcitx.InputContext1", what); }

private:
    Fcitx5Daemon* daemon_;
    QString path_;
};

/// A desktop with Fcitx5, and the program's view of it.
struct Fcitx5Session {
    explicit Fcitx5Session(const Fcitx5Daemon::Settings& settings = {}) : daemon(settings) {}

    bool select(const std::string& id) { return sources.selectInputSource({.id = id}); }
    bool waitForCurrent(const std::string& id) {
        return waitUntil([&] { return currentIdIn(sources) == id; });
    }
    /// What the context really has that had the focus last.
    bool waitForReal(const QString& inputMethod) {
        return waitUntil([&] { return daemon.inputMethod() == inputMethod; });
    }
    void start() {
        daemon.start();
        waitUntil([&] { return sources.isAvailable(); });
    }

    ScratchFolders folders;
    XServer server{"us,ru,de"};
    SessionBus bus;
    Fcitx5Daemon daemon;
    std::unique_ptr<XConnection> x = XConnection::open();
    std::vector<std::string> drawn;
    ImageRef draw(const std::string& what) {
        drawn.push_back(what);
        return nullptr;
    }
    XkbKeyboard keyboard{*x};
    LayoutInputSources layouts{keyboard, [this](const auto& letters) { return draw(letters); }};
    Fcitx5InputSources sources{layouts,
                               {.draw = [this](const auto& letters) { return draw(letters); },
                                .find = [this](const auto& reference) { return draw("find " + reference); }}};
    /// What the rest of the program sees. It repeats selections when the daemon was too busy to answer.
    SessionInputSources desktop{"X11", layouts, {&sources}};
};

class Fcitx5Bench : public TextInputSourcesBench {
public:
    Fcitx5Bench() {
        session_.start();
        client_.emplace(session_.daemon, "client");
    }
    TextInputSources& sources() override { return session_.sources; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    int changesTold() const override { return changes_; }
    void selectFromOutside(const std::string& id) override {
        // The user answers to what is to be seen, not to what is under way.
        const auto seen = fcitx5InputMethodOfID(currentIdIn(session_.sources));
        session_.waitForReal(QString::fromStdString(seen));
        session_.daemon.select(QString::fromStdString(fcitx5InputMethodOfID(id)));
    }
    void disable(const std::string& id) override {
        inputMethods_.removeAt(id == "xkb:us" ? 0 : inputMethods_.size() - 2);
        session_.daemon.setInputMethods(inputMethods_);
    }

private:
    QStringList inputMethods_{"keyboard-us", "keyboard-ru", "keyboard-de-neo"};
    Fcitx5Session session_{{.inputMethods = inputMethods_}};
    std::optional<Fcitx5Client> client_;
    int changes_ = 0;
    Subscription counting_ = session_.sources.selectionChanged.connect([this] { ++changes_; });
};

INSTANTIATE_TEST_SUITE_P(Fcitx5, TextInputSourcesContract,
                         testing::Values([] { return std::make_unique<Fcitx5Bench>(); }));

class Fcitx5InputSourcesTest : public testing::Test {
protected:
    Fcitx5Session session_;
};

TEST_F(Fcitx5InputSourcesTest, NamesAndIconsAreTheDaemonsWhereTheXServerHasNone) {
    session_.daemon.start();
    session_.daemon.setInputMethods({"keyboard-us", "keyboard-fr-oss", "pinyin", "hangul"});
    ASSERT_TRUE(waitUntil([&] { return session_.sources.createInputSourceList().size() == 4; }));
    const std::pair<const char*, const char*> names[] = {{"xkb:us", "English (US)"},
                                                         {"fcitx:pinyin", "拼音"},
                                                         {"fcitx:hangul", "한글"},
                                                         {"fcitx:gone", "fcitx:gone"}};
    for (const auto& [id, name] : names)
        EXPECT_EQ(session_.sources.localizedName({.id = id}), name);
    EXPECT_THAT(session_.sources.localizedName({.id = "xkb:fr:oss"}), testing::HasSubstr("French"));
    for (const auto* id : {"xkb:us", "xkb:fr:oss", "fcitx:pinyin", "fcitx:hangul", "fcitx:gone"})
        session_.sources.iconOfReference({.id = id});
    EXPECT_THAT(session_.drawn, testing::ElementsAre("EN", "FR", "find fcitx-pinyin", "拼", "PI",
                                                     "find fcitx-hangul", "한", "HA"));
}

TEST_F(Fcitx5InputSourcesTest, IsUnavailableWhileTheDaemonHangsAndWhenTheBusHasEnded) {
    const auto becomes = [&](bool isAvailable) {
        return waitUntil([&] { return session_.sources.isAvailable() == isAvailable; });
    };
    session_.start();
    session_.daemon.stop();
    EXPECT_TRUE(session_.select("xkb:ru"));
    EXPECT_TRUE(becomes(false));
    EXPECT_FALSE(session_.select("xkb:us"));
    EXPECT_EQ(currentIdIn(session_.sources), "none");
    session_.daemon.resume();
    EXPECT_TRUE(becomes(true));
    session_.bus.end();
    EXPECT_TRUE(becomes(false));
}

TEST_F(Fcitx5InputSourcesTest, WhoseAContextIsIsKnownBeforeItHasTheFocus) {
    std::set<std::string> asked;
    const BusMonitor monitor(
        {"type='method_call',member='GetConnectionUnixProcessID'"},
        [&](const auto& message) { asked.insert(message.texts.begin(), message.texts.end()); });
    ASSERT_TRUE(waitUntil([&] { return monitor.isHearing(); }));
    session_.start();
    EXPECT_TRUE(waitUntil([&] {
        const Fcitx5Client client(session_.daemon, "client", false);
        return asked.contains(session_.daemon.bus().baseService().toStdString());
    }));
}

TEST_F(Fcitx5InputSourcesTest, ItsGroupsOwnLayoutIsWhatTheXServerHas) {
    session_.start();
    const Fcitx5Client client(session_.daemon, "client");
    const auto userX = XConnection::open();
    XkbKeyboard user(*userX);
    for (const auto& [group, id] : {std::pair(1U, "xkb:ru"), {2U, "xkb:de"}, {0U, "xkb:us"}}) {
        ASSERT_TRUE(session_.select("xkb:us") && session_.waitForReal("keyboard-us"));
        user.lockGroup(group);
        EXPECT_TRUE(session_.waitForCurrent(id)) << id;
    }
}

TEST_F(Fcitx5InputSourcesTest, NobodyIsWokenWithoutADaemon) {
    int wakeUps = 0;
    const QObject counting;
    session_.sources.applicationActivated("application", getpid());
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &counting,
                     [&] { ++wakeUps; });
    QTimer::singleShot(500, qApp, [] { QCoreApplication::exit(); }); // Looks would be each 32 ms.
    QCoreApplication::exec();
    EXPECT_LT(wakeUps, 15) << "of which some are the start's";
}

TEST_F(Fcitx5InputSourcesTest, WhatNoDaemonEverListedChangesNothingWhileItIsAway) {
    auto& desktop = session_.desktop;
    const auto layoutAfter = [&](const char* id) {
        for (const auto* each : {"xkb:ru", id})
            EXPECT_TRUE(desktop.selectInputSource(desktop.createInputSourceList(each).front())) << each;
        return desktop.copyCurrentKeyboardInputSource()->id;
    };
    EXPECT_EQ(layoutAfter("fcitx:nonsense"), "xkb:ru");
    EXPECT_EQ(layoutAfter("fcitx:pinyin"), "xkb:ru") << "as far as is known";
    session_.start();
    const Fcitx5Client client(session_.daemon, "client");
    EXPECT_TRUE(session_.waitForReal("pinyin")) << "it was only awaited";
    session_.daemon.kill();
    EXPECT_TRUE(waitUntil([&] { return !session_.sources.isAvailable(); }));
    EXPECT_EQ(layoutAfter("fcitx:nonsense"), "xkb:ru");
    EXPECT_EQ(layoutAfter("fcitx:pinyin"), "xkb:us");
}

TEST_F(Fcitx5InputSourcesTest, BadAnswersAreIgnored) {
    class Impostor : public QDBusVirtualObject {
    public:
        QString introspect(const QString& /*path*/) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
            ++asked[message.member()];
            return bus.send(message.createReply(answers[message.member()]));
        }
        QMap<QString, QVariantList> answers;
        QMap<QString, int> asked;
    } impostor;
    Fcitx5Daemon::Items items{{"", ""}, {"pinyin", ""}, {"pinyin", "us"}};
    for (int number = 0; number < 10000; ++number)
        items.append({"engine" + QString::number(number), ""});
    impostor.answers = {{"CurrentInputMethodGroup", {7}},
                        {"InputMethodGroupInfo", {"us", "nothing"}},
                        {"AvailableInputMethods", {QStringList{"pinyin"}}},
                        {"CurrentInputMethod", {QStringList{"pinyin"}}},
                        {"GetConfig", {"text"}}};
    auto& bus = session_.daemon.bus();
    ASSERT_TRUE(bus.registerVirtualObject("/controller", &impostor));
    ASSERT_TRUE(bus.registerService("org.fcitx.Fcitx5"));
    int changes = 0;
    const auto counting = session_.sources.availabilityChanged.connect([&] { ++changes; });
    EXPECT_TRUE(waitUntil([&] { return impostor.asked["InputMethodGroupInfo"] > 0; }));
    EXPECT_FALSE(session_.sources.isAvailable());
    impostor.answers["InputMethodGroupInfo"] = {"us", QVariant::fromValue(items)};
    bus.send(
        QDBusMessage::createSignal("/controller", "org.fcitx.Fcitx.Controller1", "InputMethodGroupsChanged"));
    EXPECT_TRUE(waitUntil([&] { return session_.sources.isAvailable(); }));
    EXPECT_EQ(session_.sources.createInputSourceList().size(), 10001U);
    EXPECT_EQ(session_.sources.localizedName({.id = "fcitx:pinyin"}), "fcitx:pinyin");
    EXPECT_TRUE(session_.select("fcitx:pinyin"));
    EXPECT_TRUE(session_.waitForCurrent("none")) << "never selected";
    EXPECT_EQ(changes, 1);
}

TEST(Fcitx5Layouts, ThatItHasOverwrittenAreStillItsOwn) {
    Fcitx5Session session({.keepsLayouts = false});
    session.start();
    EXPECT_TRUE(waitUntil([&] { return session.layouts.createInputSourceList().size() == 1; }));
    Fcitx5Client client(session.daemon, "client");
    for (const auto* id : {"xkb:ru", "xkb:us", "xkb:ru"}) {
        session.desktop.applicationActivated(id, getpid());
        EXPECT_TRUE(session.desktop.selectInputSource({.id = id}));
        EXPECT_TRUE(session.waitForReal(QString::fromStdString(fcitx5InputMethodOfID(id))));
        EXPECT_EQ(session.layouts.copyCurrentKeyboardInputSource()->id, "xkb:us");
        client.tell("FocusOut");
        EXPECT_TRUE(session.waitForCurrent(id));
        client = Fcitx5Client(session.daemon, id); // another program
    }
}

} // namespace
} // namespace quorvane
