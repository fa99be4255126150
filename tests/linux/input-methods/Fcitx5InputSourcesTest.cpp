#include <QElapsedTimer>

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
        session_.sources.userMayHaveSwitched();
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

class Fcitx5InputSourcesTest : public testing::TestWithParam<const char*> {
protected:
    void activate(const std::string& wish) {
        session_.sources.applicationActivated();
        EXPECT_EQ(session_.current(), "none");
        EXPECT_EQ(wish.empty() || session_.select(wish), true) << wish;
    }

    Fcitx5Session session_;
};

TEST_F(Fcitx5InputSourcesTest, NamesAndIconsAreTheDaemonsWhereTheXServerHasNone) {
    session_.daemon.start();
    session_.daemon.setInputMethods({"keyboard-us", "keyboard-fr-oss", "pinyin", "hangul"});
    ASSERT_TRUE(waitUntil([&] { return session_.sources.createInputSourceList().size() == 4; }));
    const std::pair<const char*, const char*> names[] = {{"xkb:us", "English (US)"},
                                                         {"fcitx:pinyin", "Pinyin"},
                                                         {"fcitx:hangul", "Hangul"},
                                                         {"fcitx:gone", "fcitx:gone"}};
    for (const auto& [id, name] : names)
        EXPECT_EQ(session_.sources.localizedName({.id = id}), name);
    EXPECT_THAT(session_.sources.localizedName({.id = "xkb:fr:oss"}), testing::HasSubstr("French"));
    for (const auto* id : {"xkb:us", "xkb:fr:oss", "fcitx:pinyin", "fcitx:hangul", "fcitx:gone"})
        session_.sources.iconOfReference({.id = id});
    EXPECT_THAT(session_.drawn, testing::ElementsAre("EN", "FR", "拼", "PI", "한", "HA", "GO"));
    EXPECT_THAT(session_.looked, testing::ElementsAre("fcitx-pinyin", "fcitx-hangul"));
}

TEST_F(Fcitx5InputSourcesTest, AProgramThatOpensGetsItsOwnAndTheOneBeforeItKeepsWhatItHas) {
    session_.start();
    Fcitx5Client before(session_.daemon, "before");
    before.focusIn();
    session_.daemon.select("hangul");
    session_.sources.userMayHaveSwitched();
    ASSERT_TRUE(session_.waitForCurrent("fcitx:hangul"));
    activate("xkb:ru");
    before.focusOut();
    EXPECT_TRUE(waitUntil([&] { return session_.layouts.copyCurrentKeyboardInputSource()->id == "xkb:ru"; }));
    EXPECT_EQ(session_.daemon.inputMethod(), "hangul");
    Fcitx5Client opening(session_.daemon, "opening");
    opening.focusIn();
    EXPECT_TRUE(session_.waitForReal("keyboard-ru"));
    EXPECT_EQ(session_.current(), "xkb:ru");
    before.focusIn();
    activate(""); // no rule
    EXPECT_TRUE(session_.waitForReal("hangul"));
    EXPECT_TRUE(session_.waitForCurrent("fcitx:hangul"));
    EXPECT_TRUE(waitUntil([&] { return session_.layouts.copyCurrentKeyboardInputSource()->id == "xkb:us"; }));
}

TEST_F(Fcitx5InputSourcesTest, AChangeByHandIsSeenWhereThereIsATray) {
    const Tray tray;
    session_.start();
    Fcitx5Client client(session_.daemon, "client");
    client.focusIn();
    session_.sources.userMayHaveSwitched();
    ASSERT_TRUE(session_.waitForCurrent("xkb:us"));
    ASSERT_TRUE(waitUntil([&] { return tray.hasIcon(); }));
    // Fcitx5 has an icon only when it has got the tray's answer.
    ASSERT_TRUE(waitUntil([&] {
        session_.daemon.select(session_.daemon.inputMethod() == "pinyin" ? "keyboard-us" : "pinyin");
        return session_.current() == "fcitx:pinyin";
    }));
    session_.daemon.select("keyboard-ru");
    EXPECT_TRUE(session_.waitForCurrent("xkb:ru"));
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
    session_.daemon.start();
    EXPECT_TRUE(waitFor(true));
    EXPECT_LT(age.elapsed(), 2000);
    session_.daemon.start(); // in the place of the one that runs
    EXPECT_TRUE(waitFor(true));
    session_.bus.end();
    EXPECT_TRUE(waitFor(false));
    EXPECT_GE(changes, 6);
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
    activate("fcitx:pinyin");
    EXPECT_TRUE(session_.waitForCurrent("none")) << "never selected";
    EXPECT_EQ(changes, 1);
}

class Fcitx5SharingTest : public testing::TestWithParam<const char*> {};

TEST_P(Fcitx5SharingTest, EachProgramGetsItsOwnHoweverStateIsShared) {
    Fcitx5Session session(
        {.inputMethods = {"keyboard-us", "keyboard-ru", "keyboard-de-neo"}, .shareInputState = GetParam()});
    session.start();
    Fcitx5Client one(session.daemon, "one"), other(session.daemon, "other");
    for (int time = 0; time < 5; ++time) {
        session.desktop.applicationActivated();
        one.focusIn();
        session.desktop.selectInputSource({.id = "xkb:ru"});
        EXPECT_TRUE(session.waitForReal("keyboard-ru")) << time;
        other.focusIn();
        session.desktop.applicationActivated();
        session.desktop.selectInputSource({.id = time % 2 ? "xkb:de:neo" : "xkb:us"});
        EXPECT_TRUE(session.waitForReal(time % 2 ? "keyboard-de-neo" : "keyboard-us"));
    }
}

INSTANTIATE_TEST_SUITE_P(Fcitx5, Fcitx5SharingTest, testing::Values("All", "Program", "No"));

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
    bool waitFor(const QByteArray& line) {
        return waitUntil([&] { return (output_ += process_.readAllStandardOutput()).contains(line); });
    }

private:
    ChildProcess process_;
    QByteArray output_;
};

TEST(Fcitx5TypingTest, TheFirstKeyIsTypedWithWhatWasSelected) {
    Fcitx5Session session;
    const WindowManager manager("openbox");
    session.start();
    XClient user;
    const std::pair<const char*, const char*> cases[] = {{"xkb:us", "s"}, {"xkb:ru", "ы"}, {"xkb:us", "s"}};
    for (const auto& [id, typed] : cases) {
        session.desktop.applicationActivated();
        ASSERT_TRUE(session.desktop.selectInputSource({.id = id}));
        InputWindow window(id);
        ASSERT_TRUE(window.waitFor("shown "));
        user.pressTogether({39}); // S
        EXPECT_TRUE(window.waitFor(QByteArray("typed ") + typed)) << id;
    }
}

TEST(Fcitx5TypingTest, LayoutsThatFcitx5HasOverwrittenAreStillItsOwn) {
    Fcitx5Session session({.keepsLayouts = false});
    session.start();
    EXPECT_TRUE(waitUntil([&] { return session.layouts.createInputSourceList().size() == 1; }));
    Fcitx5Client client(session.daemon, "client");
    client.focusIn();
    for (const auto* id : {"xkb:ru", "xkb:us", "xkb:ru"}) {
        session.desktop.applicationActivated();
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
