#include <QElapsedTimer>
#include <unistd.h>

#include "Fcitx5Session.h"
#include "contracts/TextInputSourcesContract.h"
#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"
#include "virtual-desktop/XClient.h"

namespace quorvane {
namespace {

class Fcitx5Bench : public TextInputSourcesBench {
public:
    Fcitx5Bench() {
        session_.start();
        client_.emplace(session_.daemon, "client");
        client_->focusIn();
    }
    TextInputSources& sources() override { return session_.sources; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    int changesTold() const override { return changes_; }
    void selectFromOutside(const std::string& id) override {
        // The user answers to what is to be seen, not to what is under way.
        const auto seen = fcitx5InputMethodOfID(session_.current());
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
    EXPECT_THAT(session_.drawn, testing::ElementsAre("EN", "FR", "拼", "PI", "한", "HA", "GO"));
    EXPECT_THAT(session_.looked, testing::ElementsAre("fcitx-pinyin", "fcitx-hangul"));
}

TEST_F(Fcitx5InputSourcesTest, IsUnavailableWhileTheDaemonIsGoneOrHangs) {
    QElapsedTimer age;
    int changes = 0;
    const auto counting = session_.sources.availabilityChanged.connect([&] { ++changes; });
    const auto waitFor = [&](bool isAvailable) {
        age.start();
        return waitUntil([&] { return session_.sources.isAvailable() == isAvailable; });
    };
    EXPECT_FALSE(session_.sources.isAvailable());
    EXPECT_FALSE(session_.select("xkb:ru"));
    session_.start();
    Fcitx5Client client(session_.daemon, "client");
    client.focusIn();
    EXPECT_TRUE(session_.select("xkb:ru"));
    EXPECT_TRUE(session_.waitForReal("keyboard-ru"));
    session_.daemon.stop();
    age.start();
    EXPECT_TRUE(session_.select("xkb:us"));
    EXPECT_LT(age.elapsed(), 50) << "nothing waits";
    EXPECT_TRUE(waitFor(false));
    EXPECT_LT(age.elapsed(), 1500);
    EXPECT_FALSE(session_.select("xkb:us"));
    EXPECT_EQ(session_.current(), "none");
    session_.daemon.resume();
    EXPECT_TRUE(waitFor(true));
    EXPECT_LT(age.elapsed(), 2000);
    session_.daemon.kill();
    EXPECT_TRUE(waitFor(false));
    const auto awaited = session_.desktop.createInputSourceList("fcitx:pinyin");
    ASSERT_EQ(awaited.size(), 1U);
    EXPECT_TRUE(session_.desktop.selectInputSource(awaited.front()));
    EXPECT_EQ(session_.desktop.copyCurrentKeyboardInputSource()->id, "xkb:us") << "underneath";
    session_.daemon.start();
    EXPECT_TRUE(waitFor(true));
    EXPECT_LT(age.elapsed(), 2000);
    client = Fcitx5Client(session_.daemon, "client");
    client.focusIn();
    EXPECT_TRUE(session_.waitForReal("pinyin"));
    session_.daemon.start(); // in the place of the one that runs
    EXPECT_TRUE(waitFor(true));
    session_.bus.end();
    EXPECT_TRUE(waitFor(false));
    EXPECT_GE(changes, 6);
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
    Fcitx5Client client(session_.daemon, "client");
    client.focusIn();
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
    using Item = std::pair<QString, QString>;
    qDBusRegisterMetaType<Item>();
    qDBusRegisterMetaType<QList<Item>>();
    QList<Item> items{{"", ""}, {"pinyin", ""}, {"pinyin", "us"}};
    for (int number = 0; number < 10000; ++number)
        items.append({"engine" + QString::number(number), ""});
    impostor.answers = {{"CurrentInputMethodGroup", {7}},
                        {"InputMethodGroupInfo", {"us", "nothing"}},
                        {"AvailableInputMethods", {QStringList{"pinyin"}}},
                        {"CurrentInputMethod", {QStringList{"pinyin"}}},
                        {"DebugInfo", {}},
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

/// A program with a window, started by the user.
class InputWindow {
public:
    explicit InputWindow(const QString& title) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_IM_MODULE", "fcitx");
        environment.insert("XDG_DATA_DIRS", "/usr/share");
        process_.setProcessEnvironment(environment);
        process_.start(QUORVANE_TEST_INPUT_WINDOW, {title});
    }
    int process() const { return int(process_.processId()); }
    bool waitFor(const QByteArray& line) {
        return waitUntil([&] { return (output_ += process_.readAllStandardOutput()).contains(line); });
    }

private:
    ChildProcess process_;
    QByteArray output_;
};

class Fcitx5TypingTest : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Sharing, Fcitx5TypingTest, testing::Values("All", "Program", "No"));

TEST_P(Fcitx5TypingTest, TheFirstKeyIsTypedWithWhatWasSelectedHoweverStateIsShared) {
    Fcitx5Session session({.shareInputState = GetParam()});
    const WindowManager manager("openbox");
    session.start();
    XClient user;
    const std::pair<const char*, const char*> cases[] = {{"xkb:us", "s"}, {"xkb:ru", "ы"}, {"xkb:us", "s"}};
    for (const auto& [id, typed] : cases) {
        InputWindow window(id);
        session.desktop.applicationActivated(id, window.process());
        ASSERT_TRUE(session.desktop.selectInputSource({.id = id}));
        ASSERT_TRUE(window.waitFor("shown "));
        user.pressTogether({39}); // S
        EXPECT_TRUE(window.waitFor(QByteArray("typed ") + typed)) << id;
    }
}

TEST(Fcitx5Layouts, ThatItHasOverwrittenAreStillItsOwn) {
    Fcitx5Session session({.keepsLayouts = false});
    session.start();
    EXPECT_TRUE(waitUntil([&] { return session.layouts.createInputSourceList().size() == 1; }));
    Fcitx5Client client(session.daemon, "client");
    client.focusIn();
    for (const auto* id : {"xkb:ru", "xkb:us", "xkb:ru"}) {
        session.desktop.applicationActivated(id, getpid());
        EXPECT_TRUE(session.desktop.selectInputSource({.id = id}));
        EXPECT_TRUE(session.waitForReal(QString::fromStdString(fcitx5InputMethodOfID(id))));
        EXPECT_EQ(session.layouts.copyCurrentKeyboardInputSource()->id, "xkb:us");
        client.focusOut();
        EXPECT_TRUE(session.waitForCurrent(id));
        client = Fcitx5Client(session.daemon, id); // another program
        client.focusIn();
    }
}

} // namespace
} // namespace quorvane
