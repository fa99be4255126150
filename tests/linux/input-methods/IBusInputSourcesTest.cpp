#include <QDir>
#include <QFile>

#include "contracts/TextInputSourcesContract.h"
#include "platform/linux/input-methods/ibus/IBusInputSources.h"
#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {
namespace {

/// A user of IBus, and the program's view of what happens. The daemon is not started yet.
struct IBusSession {
    explicit IBusSession(const QStringList& engines) {
        IBusDaemon::setPreloadEngines(engines);
        user.lockGroup(0); // The server is the same for all tests.
        waitUntil([this] { return layouts.copyCurrentKeyboardInputSource()->id == "xkb:us"; });
    }

    void start() {
        daemon.start();
        if (!waitUntil([this] { return sources.isAvailable(); })) throw std::runtime_error("not available");
    }
    bool select(const std::string& id) { return sources.selectInputSource({.id = id}); }
    bool waitForCurrent(const std::string& id) {
        return waitUntil([&] { return currentIdIn(sources) == id; });
    }
    bool waitForGroup(unsigned group) {
        return waitUntil([&] { return XClient().currentGroup() == group; });
    }
    bool waitForEngine(const QString& engine) {
        return waitUntil([&] { return daemon.globalEngine() == engine; });
    }

    // The settings are installed on the machine, not in the home of a test.
    bool findsSettings = qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    bool hasLayouts = XServer::setLayouts("us,ru,de", ",,neo");
    IBusDaemon daemon;
    std::unique_ptr<XConnection> x = XConnection::open(), userX = XConnection::open();
    XkbKeyboard user{*userX};
    std::vector<std::string> icons;
    ImageRef draw(const std::string& letters) {
        icons.push_back(letters);
        return nullptr;
    }
    XkbKeyboard keyboard{*x};
    LayoutInputSources layouts{keyboard, [this](const auto& letters) { return draw(letters); }};
    IBusInputSources sources{layouts,
                             {.draw = [this](const auto& letters) { return draw(letters); },
                              .find = [this](const auto& reference) { return draw("find " + reference); }}};
    int changes = 0;
    Subscription counting = sources.selectionChanged.connect([this] { ++changes; });
    // On a machine that is busy the daemon may be late; whoever hears that asks for the selection, too.
    Subscription countingToo = sources.availabilityChanged.connect([this] { ++changes; });
};

/// The user and the panel that IBus has: what it does is done here.
class IBusBench : public TextInputSourcesBench {
public:
    IBusBench() { session_.start(); }
    TextInputSources& sources() override { return session_.sources; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    int changesTold() const override { return session_.changes; }
    void selectFromOutside(const std::string& id) override {
        // The server takes requests of two programs in any order.
        const XcbReply<xcb_get_input_focus_reply_t> programsWereTaken(
            xcb_get_input_focus_reply(session_.x->xcb(), xcb_get_input_focus(session_.x->xcb()), nullptr));
        session_.daemon.setGlobalEngine(engineOf(id)); // Refused if a later selection overtakes it.
        session_.user.lockGroup(unsigned(all_.indexOf(engineOf(id))));
    }
    void disable(const std::string& id) override {
        engines_.removeAll(engineOf(id));
        IBusDaemon::setPreloadEngines(engines_);
        // The panel goes on with the first one. The daemon may still be starting the one that is selected.
        if (currentIdIn(session_.sources) == id)
            selectFromOutside(idOfEngine(engines_.front().toStdString()));
    }

private:
    QString engineOf(const std::string& id) const {
        for (const auto& engine : all_) {
            if (idOfEngine(engine.toStdString()) == id) return engine;
        }
        return {};
    }

    const QStringList all_{"xkb:us::eng", "xkb:ru::rus", "xkb:de:neo:deu"};
    QStringList engines_ = all_;
    IBusSession session_{all_};
};

INSTANTIATE_TEST_SUITE_P(IBus, TextInputSourcesContract,
                         testing::Values([] { return std::make_unique<IBusBench>(); }));

class IBusInputSourcesTest : public testing::Test, protected IBusSession {
protected:
    IBusInputSourcesTest()
        : IBusSession({"xkb:us::eng", "xkb:ru::rus", "libpinyin", "hangul", "xkb:fr::fra"}) {}
};

TEST_F(IBusInputSourcesTest, AMethodIsSelectedOverALatinLayout) {
    start();
    EXPECT_TRUE(waitUntil([this] { return daemon.killEngine("libpinyin"); })) << "it is started ahead";
    ASSERT_TRUE(select("xkb:ru") && waitForEngine("xkb:ru::rus"));
    EXPECT_EQ(XClient().currentGroup(), 1U);
    ASSERT_TRUE(select("ibus:libpinyin"));
    EXPECT_EQ(currentIdIn(sources), "ibus:libpinyin") << "at once";
    EXPECT_TRUE(waitForEngine("libpinyin"));
    EXPECT_EQ(XClient().currentGroup(), 0U);
    EXPECT_EQ(sources.copyCurrentKeyboardLayoutInputSource()->id, "xkb:us");
    const auto told = changes;
    EXPECT_GT(told, 0);
    ASSERT_TRUE(daemon.setGlobalEngine("hangul"));
    EXPECT_TRUE(waitForCurrent("ibus:hangul"));
    ASSERT_TRUE(daemon.setGlobalEngine("xkb:us::eng"));
    ASSERT_TRUE(waitForCurrent("xkb:us"));
    user.lockGroup(1); // By the keys that go through the layouts, past IBus.
    EXPECT_TRUE(waitForCurrent("xkb:ru"));
    EXPECT_GE(changes, told + 3);
    ASSERT_TRUE(daemon.setGlobalEngine("libpinyin"));
    ASSERT_TRUE(waitForCurrent("ibus:libpinyin"));
    EXPECT_TRUE(waitForGroup(0)) << "whoever selected it";
    user.lockGroup(1);
    EXPECT_TRUE(waitForCurrent("xkb:ru")) << "it has no use for these letters";
    user.lockGroup(2);
    EXPECT_TRUE(waitForCurrent("ibus:libpinyin"));
    ASSERT_TRUE(daemon.setGlobalEngine("xkb:us::eng"));
    EXPECT_TRUE(waitForCurrent("xkb:de:neo")) << "what is underneath stays the user's";
    EXPECT_EQ(XClient().currentGroup(), 2U);
}

TEST_F(IBusInputSourcesTest, SourcesAreDescribedAsTheUserKnowsThem) {
    start();
    const auto list = sources.createInputSourceList();
    EXPECT_THAT(idsOf(list),
                testing::ElementsAre("xkb:us", "xkb:ru", "ibus:libpinyin", "ibus:hangul", "xkb:fr"));
    EXPECT_TRUE(list[2].isSelectCapable);
    EXPECT_FALSE(list[4].isSelectCapable) << "the X server does not have it";
    EXPECT_FALSE(sources.selectInputSource(list[4]));
    std::vector<std::string> names;
    for (const auto& source : list) {
        names.push_back(sources.localizedName(source));
        EXPECT_FALSE(sources.iconOfReference(source)) << "nothing is drawn here";
    }
    EXPECT_THAT(names,
                testing::ElementsAre("English (US)", "Russian", "Intelligent Pinyin", "Hangul", "French"));
    EXPECT_THAT(icons,
                testing::ElementsAre("EN", "RU", "find /usr/share/ibus-libpinyin/icons/ibus-pinyin.svg", "拼",
                                     "ZH", "find ibus-hangul", "한", "KO", "FR"));

    IBusDaemon::setPreloadEngines({"hangul", "no such engine"});
    EXPECT_TRUE(waitUntil([this] {
        return idsOf(sources.createInputSourceList()) == std::vector<std::string>{"ibus:hangul"};
    }));
    IBusDaemon::setPreloadEngines({});
    EXPECT_TRUE(waitUntil([this] {
        return idsOf(sources.createInputSourceList()) ==
               std::vector<std::string>{"xkb:us", "xkb:ru", "xkb:de:neo"};
    })) << "what the X server has, and nothing for the language C";
}

TEST_F(IBusInputSourcesTest, ADaemonThatHangsIsUnavailableUntilItGoesOn) {
    start();
    for (const bool goesOn : {true, false}) {
        daemon.stop();
        EXPECT_TRUE(waitUntil([this] {
            sources.applicationActivated("", 0);
            return !sources.isAvailable();
        }));
        goesOn ? daemon.resume() : daemon.kill();
        if (!goesOn) daemon.start(); // another one in its place
        EXPECT_TRUE(waitUntil([this] { return sources.isAvailable(); }));
    }
}

TEST_F(IBusInputSourcesTest, AnotherProgramAtTheAddressIsNoDaemonAndTheFolderMayGo) {
    start();
    const auto pretend = [](const QByteArray& address) {
        QFile file(IBusDaemon::addressFile());
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write("IBUS_ADDRESS=" + address + "\nIBUS_DAEMON_PID=1\n");
    };
    pretend(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    EXPECT_TRUE(waitUntil([this] { return !sources.isAvailable(); }));
    pretend("unix:path=/nowhere");
    pretend("nonsense");
    pretend("");
    daemon.end();
    ASSERT_TRUE(QDir(qEnvironmentVariable("XDG_CONFIG_HOME") + "/ibus").removeRecursively());
    start();
}

} // namespace
} // namespace quorvane
