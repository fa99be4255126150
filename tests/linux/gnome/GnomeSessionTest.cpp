// The session of GNOME Shell in this process, with a real shell and our extension in it.

#include <list>
#include <map>

#include <QGuiApplication>

#include "contracts/TextInputSourcesContract.h"
#include "contracts/WorkspaceContract.h"
#include "linux/gnome/GnomeDesktop.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/linux/control/ControlAddress.h"
#include "platform/linux/gnome/GnomeSession.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

/// The agent's side, from when the extension has told everything.
struct Agent {
    explicit Agent(const QString& sources = usual) {
        if (!desktop.haveSources(sources)) throw std::runtime_error("the shell has other sources");
        bus.registerService(control_address::service());
        const auto wanted = std::size_t(sources.count("',"));
        const bool isThere =
            waitUntil([&] { return session.parts().layouts.createInputSourceList().size() >= wanted / 2; });
        if (!isThere) throw std::runtime_error("the extension is silent");
    }
    ~Agent() {
        bus.unregisterService(control_address::service());
        QDBusConnection::disconnectFromBus(bus.name());
    }

    GnomeDesktop& desktop = GnomeDesktop::shared();
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "agent");
    DesktopEntries entries = DesktopEntries::ofEnvironment();
    SessionApplications applications{entries, nullptr};
    GnomeSession session{
        bus, applications, {[](const auto&) { return nullptr; }, [](const auto&) { return nullptr; }}};
};

template <class Bench>
class GnomeBench : public Bench {
public:
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

protected:
    explicit GnomeBench(const QString& sources = usual) : agent_(sources) {}

    GnomeServer& server_ = GnomeDesktop::shared().server;
    Agent agent_;
};

class GnomeSourcesBench : public GnomeBench<TextInputSourcesBench> {
public:
    GnomeSourcesBench() : GnomeBench("('xkb','us'),('xkb','ru'),('xkb','de+neo')") {}
    TextInputSources& sources() override { return layouts_; }
    int changesTold() const override { return changes_; }
    void selectFromOutside(const std::string& id) override {
        const auto& enabled = sources_;
        server_.selectLayout(static_cast<unsigned>(std::ranges::find(enabled, id) - enabled.begin()));
    }
    void disable(const std::string& id) override {
        std::erase(sources_, id);
        QStringList left;
        for (const auto& source : sources_)
            left << "('xkb','" + QString::fromStdString(source).mid(4).replace(':', '+') + "')";
        GnomeServer::set("org.gnome.desktop.input-sources", "sources", "[" + left.join(',') + "]");
    }

private:
    std::vector<std::string> sources_{"xkb:us", "xkb:ru", "xkb:de:neo"};
    LayoutSources& layouts_ = agent_.session.parts().layouts;
    int changes_ = 0;
    Subscription counting_ = layouts_.selectionChanged.connect([this] { ++changes_; });
};

class GnomeWorkspaceBench : public GnomeBench<WorkspaceBench> {
public:
    Workspace& workspace() override { return agent_.applications.workspace; }
    void openWindow(const std::string& id) override {
        windows_[id].emplace_back(QString::fromStdString(id));
        activate(id);
    }
    void activate(const std::string& id) override { server_.activate(QString::fromStdString(id)); }
    void hide(const std::string& id) override {
        server_.evaluate("find('" + QString::fromStdString(id) + "').minimize()");
    }
    void quit(const std::string& id) override { windows_.erase(id); }

private:
    std::map<std::string, std::list<WaylandWindow>> windows_;
};

template <class Bench>
auto bench() {
    return testing::Values([] { return std::make_unique<Bench>(); });
}
INSTANTIATE_TEST_SUITE_P(Gnome, TextInputSourcesContract, bench<GnomeSourcesBench>());
INSTANTIATE_TEST_SUITE_P(Gnome, WorkspaceContract, bench<GnomeWorkspaceBench>());

class GnomeSessionTest : public testing::Test {
protected:
    Agent agent;
    GnomeDesktop& desktop = agent.desktop;
    GnomeServer& server = desktop.server;
    SessionParts parts = agent.session.parts();
};

TEST_F(GnomeSessionTest, HotKeysAreOfPositionsAndRefusedWhereTheShellHasThem) {
    constexpr std::uint8_t control = 37, alt = 64, j = 44;
    constexpr std::int64_t codeOfJ = 0x26, codeOfA = 0x00;
    std::vector<std::string> fired;
    auto key = parts.hotKeys.registerHotKey({codeOfJ, ModifierFlag::control | ModifierFlag::option},
                                            [&] { fired.emplace_back("key"); });
    bool isChanged = false;
    const auto changes = parts.hotKeys.changed.connect([&] { isChanged = true; });
    const KeyCombination ofShell{codeOfA, ModifierFlag::command};
    const auto taken = parts.hotKeys.registerHotKey(ofShell, [] {});
    EXPECT_TRUE(waitUntil([&] { return isChanged; }));
    EXPECT_FALSE(parts.hotKeys.registerHotKey(ofShell, [] {})) << "it is known by now";
    for (const unsigned layout : {0U, 1U}) {
        server.selectLayout(layout);
        server.pressTogether({control, alt, j});
        EXPECT_TRUE(waitUntil([&] { return fired.size() == layout + 1; })) << layout;
    }
    key.reset();
    WaylandWindow window("window");
    ASSERT_TRUE(server.activate("window"));
    server.selectLayout(0);
    server.pressTogether({control, alt, j});
    server.type({j});
    EXPECT_TRUE(waitUntil([&] { return window.typed().endsWith('j'); }));
    EXPECT_EQ(fired.size(), 2U);
}

TEST_F(GnomeSessionTest, TheIndicatorStandsAboveAllAndTakesNothingFromAnybody) {
    WaylandWindow window("window");
    ASSERT_TRUE(server.activate("window"));
    server.evaluate("find('window').make_fullscreen()");
    const auto colourAt = [&](QPoint place) {
        const auto file = desktop.folders.home() + "/screen.png";
        server.saveScreenshot(file);
        return QImage(file).pixelColor(place);
    };
    // Points begin at the bottom left of the primary screen: that of this process is 800 by 800 large.
    QImage red(20, 20, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    parts.indicator.mayBeDragged = [] { return true; };
    parts.indicator.moveTo({100, 500});
    parts.indicator.show(red);
    EXPECT_TRUE(waitUntil([&] {
        return colourAt({101, 281}) == Qt::red && colourAt({119, 299}) == Qt::red;
    }));
    EXPECT_EQ(colourAt({121, 281}), Qt::black);
    parts.indicator.moveTo({300, 500});
    EXPECT_TRUE(waitUntil([&] { return colourAt({301, 281}) == Qt::red; }));
    EXPECT_EQ(colourAt({101, 281}), Qt::black);

    server.evaluate("(() => { const { Clutter, GLib } = imports.gi;"
                    "const mouse = Clutter.get_default_backend().get_default_seat()"
                    ".create_virtual_device(Clutter.InputDeviceType.POINTER_DEVICE);"
                    "const now = () => GLib.get_monotonic_time();"
                    "mouse.notify_absolute_motion(now(), 310, 290);"
                    "mouse.notify_button(now(), Clutter.BUTTON_PRIMARY, 1);"
                    "mouse.notify_absolute_motion(now(), 410, 390);"
                    "mouse.notify_button(now(), Clutter.BUTTON_PRIMARY, 0);"
                    "mouse.notify_absolute_motion(now(), 20, 20);"
                    "globalThis.mouse = mouse; })()");
    EXPECT_TRUE(waitUntil([&] { return colourAt({401, 381}) == Qt::red; })) << "dragged";
    EXPECT_TRUE(server.isInFront("window"));
    parts.indicator.hide();
    EXPECT_TRUE(waitUntil([&] { return colourAt({401, 381}) == Qt::black; }));
}

TEST_F(GnomeSessionTest, WorksAgainAfterTheExtensionWasOffAndSaysSoMeanwhile) {
    using enum ShellExtension::State;
    WaylandWindow first("first"), second("second");
    ASSERT_TRUE(server.activate("first"));
    ASSERT_TRUE(waitUntil([&] { return agent.applications.workspace.frontmostApplication().has_value(); }));
    desktop.manage("disableExtension");
    EXPECT_TRUE(waitUntil([&] { return parts.shellExtension->state() == isOff; }));
    EXPECT_FALSE(parts.layouts.selectInputSource({.id = "xkb:ru"}));
    ASSERT_TRUE(server.activate("second"));
    parts.shellExtension->turnOn();
    const auto front = [&] { return agent.applications.workspace.frontmostApplication()->bundleIdentifier; };
    EXPECT_TRUE(waitUntil([&] { return front() == "second"; }));
    EXPECT_EQ(parts.shellExtension->state(), works);
    EXPECT_TRUE(parts.layouts.selectInputSource({.id = "xkb:ru"}));
    EXPECT_TRUE(waitUntil([&] { return server.layout() == 1; }));
}

TEST_F(GnomeSessionTest, AShellThatHangsIsNotWaitedFor) {
    server.stop();
    EXPECT_TRUE(parts.layouts.selectInputSource({.id = "xkb:de"}));
    EXPECT_EQ(currentIdIn(parts.layouts), "xkb:de") << "as far as anybody knows";
    server.resume();
    EXPECT_TRUE(waitUntil([&] { return server.layout() == 2; }));
}

/// What the extension decides by itself, told as the windows that come to the front, and the switches that
/// follow.
TEST_F(GnomeSessionTest, RulesActOnceForAnApplicationAndForNoneThatIsLeftAlone) {
    std::list<WaylandWindow> windows;
    for (const auto* application : {"ru", "ru", "de", "us", "free"})
        windows.emplace_back(QString("%1 %2").arg(application).arg(windows.size()), application);
    const auto after = [&](const QString& window) {
        EXPECT_TRUE(server.activate(window)) << window.toStdString();
        return server.layout();
    };
    const auto setRules = [&](const SwitchingRules& rules) {
        parts.switchingAhead->setRules(rules);
        waitUntil([&] { return parts.layouts.selectInputSource({.id = "xkb:us"}) && server.layout() == 0; });
    };
    EXPECT_EQ(after("ru 0"), 0U) << "no rules yet";
    ASSERT_EQ(after("free 4"), 0U);
    setRules({{{"ru", "xkb:ru"}, {"de", "xkb:de"}, {"us", "xkb:us"}, {"free", "xkb:nosuch"}}, ""});
    EXPECT_EQ(after("ru 0"), 1U);
    server.selectLayout(2);
    EXPECT_EQ(after("ru 1"), 2U) << "the same application keeps what the user selected";
    EXPECT_EQ(after("us 3"), 0U);
    EXPECT_EQ(after("ru 1"), 1U);
    EXPECT_EQ(after("free 4"), 1U);
    setRules({{{"ru", "xkb:ru"}}, "xkb:de"});
    EXPECT_EQ(after("us 3"), 2U) << "the source of others";
    setRules({});
    EXPECT_EQ(after("ru 0"), 0U);
}

} // namespace
} // namespace quorvane
