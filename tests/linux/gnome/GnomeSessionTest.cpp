// The session of GNOME Shell in this process, with a real shell and our extension in it.

#include <list>

#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/gnome/GnomeAgent.h"
#include "linux/gnome/GnomeDesktop.h"
#include "platform/GlobalEventMonitor.h"
#include "virtual-desktop/WaylandWindow.h"

namespace quorvane {
namespace {

class GnomeSessionTest : public testing::Test {
protected:
    DesktopEntries entries = DesktopEntries::ofEnvironment();
    SessionApplications applications{entries, nullptr};
    GnomeDesktop& desktop = GnomeDesktop::shared(usual);
    GnomeAgent agent{applications};
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
    const auto colourAt = [&](QPoint place) {
        const auto file = desktop.folders.home() + "/screen.png";
        server.saveScreenshot(file);
        return QImage(file).pixelColor(place);
    };
    // Points begin at the bottom left of the primary screen: that of this process is 800 by 800 large.
    QImage red(20, 20, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    parts.indicator.moveTo({100, 500});
    parts.indicator.show(red);
    EXPECT_TRUE(waitUntil([&] {
        return colourAt({101, 281}) == Qt::red && colourAt({119, 299}) == Qt::red;
    }));
    EXPECT_NE(colourAt({121, 281}), Qt::red);
    parts.indicator.moveTo({300, 500});
    EXPECT_TRUE(waitUntil([&] { return colourAt({301, 281}) == Qt::red; }));
    EXPECT_NE(colourAt({101, 281}), Qt::red);

    EXPECT_TRUE(server.isInFront("window"));
    server.evaluate("find('window').make_fullscreen()");
    EXPECT_TRUE(waitUntil([&] { return server.place("window").width() == 1280; }));
    EXPECT_EQ(colourAt({301, 281}), Qt::red);
    parts.indicator.hide();
    EXPECT_TRUE(waitUntil([&] { return colourAt({301, 281}) != Qt::red; }));
}

TEST_F(GnomeSessionTest, WorksAgainAfterTheExtensionWasOffAndSaysSoMeanwhile) {
    using enum ShellExtension::State;
    WaylandWindow first("first"), second("second");
    ASSERT_TRUE(server.activate("first"));
    ASSERT_TRUE(waitUntil([&] { return applications.workspace.frontmostApplication().has_value(); }));
    desktop.manage("disableExtension");
    EXPECT_TRUE(waitUntil([&] { return parts.shellExtension->state() == isOff; }));
    EXPECT_FALSE(parts.layouts.selectInputSource({.id = "xkb:ru"}));
    ASSERT_TRUE(server.activate("second"));
    parts.shellExtension->turnOn();
    const auto front = [&] { return applications.workspace.frontmostApplication()->bundleIdentifier; };
    EXPECT_TRUE(waitUntil([&] { return front() == "second"; }));
    EXPECT_EQ(parts.shellExtension->state(), works);
    EXPECT_TRUE(parts.layouts.selectInputSource({.id = "xkb:ru"}));
    EXPECT_TRUE(waitUntil([&] { return server.layout() == 1; }));
}

TEST_F(GnomeSessionTest, AShellThatHangsIsNotWaitedFor) {
    server.stop();
    EXPECT_TRUE(parts.layouts.selectInputSource({.id = "xkb:de"}));
    EXPECT_EQ(parts.layouts.copyCurrentKeyboardInputSource()->id, "xkb:de") << "as far as anybody knows";
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
