#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/x11/X11Session.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

class X11WorkspaceTest : public testing::Test {
protected:
    using Ids = std::vector<std::string>;

    Subscription noteInto(Ids& ids, WorkspaceNotification notification) {
        return session_.workspace.addObserver(notification, [&ids](const auto& application) {
            ids.push_back(application.bundleIdentifier.value_or("nobody's"));
        });
    }
    X11Session session_;
    Ids activated_;
    Ids launched_;
    Subscription activations_ = noteInto(activated_, WorkspaceNotification::didActivateApplication);
    Subscription launches_ = noteInto(launched_, WorkspaceNotification::didLaunchApplication);
};

TEST_F(X11WorkspaceTest, KnowsTheApplicationOfAWindow) {
    const auto entry = [&](const QString& id, const char* lines) {
        session_.folders.write("data/applications/" + id + ".desktop",
                               "[Desktop Entry]\nType=Application\nName=A name\n" + QByteArray(lines));
    };
    entry("org.maker.Gtk", "");
    entry("org.maker.Kde", "");
    entry("org.maker.Startup", "StartupWMClass=Odd Class\n");
    entry("org.maker.Editor", "");
    entry("plain", "");
    entry("org.maker.Tool", "Exec=env LANG=C /opt/bin/special --flag %U\n");
    entry("org.maker.Script", "Exec=python3 script.py\n");
    const auto copyOf = [&](const char* name) {
        const auto path = session_.folders.home() + "/" + name;
        QFile::copy(QUORVANE_TEST_WINDOW, path);
        return path;
    };
    const auto special = copyOf("special");
    const auto python = copyOf("python3");
    const QString standard = QUORVANE_TEST_WINDOW;
    const struct {
        QString program;
        QStringList properties;
        const char* id;
    } windows[] = {
        {special,
         {"_GTK_APPLICATION_ID=org.maker.Gtk", "_KDE_NET_WM_DESKTOP_FILE=org.maker.Kde"},
         "org.maker.Gtk"},
        {standard, {"_GTK_APPLICATION_ID=not.installed", "class=plain"}, "plain"},
        {standard, {"_GTK_APPLICATION_ID=not.installed", "class=Nothing"}, "not.installed"},
        {standard, {"_KDE_NET_WM_DESKTOP_FILE=/x/org.maker.Kde.desktop", "class=plain"}, "org.maker.Kde"},
        {standard, {"class=Odd Class", "instance=plain"}, "org.maker.Startup"},
        {standard, {"class=Unknown", "instance=Odd Class"}, "org.maker.Startup"},
        {standard, {"class=Plain", "instance=editor"}, "plain"},
        {standard, {"class=editor"}, "org.maker.Editor"},
        {special, {"class=Unknown"}, "org.maker.Tool"},
        {python, {"class=Unknown", "instance=other"}, "Unknown"},
        {standard, {"class=Unknown", "instance=other"}, "Unknown"},
        {standard, {"instance=other"}, "other"},
        {standard, {}, "quorvane_test_window"},
    };
    for (const auto& each : windows) {
        const TestWindow window(each.properties, each.program);
        session_.handleWhatHappened(); // The number of the last window, which has ended, is this one's, too.
        session_.handleWhatHappened(); // The server gives the number of the last window to this one.
        const auto* owner = session_.identities.ownerOf(window.window());
        ASSERT_TRUE(owner);
        EXPECT_EQ(owner->id, each.id) << each.properties.join(' ').toStdString();
        EXPECT_EQ(owner->pid, window.pid());
    }
}

TEST_F(X11WorkspaceTest, WindowsThatNobodyCanIdentifyHaveNoIdentifier) {
    const TestWindow first({"orphan=1"});
    ASSERT_TRUE(waitUntil([&] { return activated_.size() == 1; }));
    const TestWindow second({"orphan=1"});
    ASSERT_TRUE(waitUntil([&] { return activated_.size() == 2; }));
    session_.user.activate(first.window());
    ASSERT_TRUE(waitUntil([&] { return activated_.size() == 3; }));
    EXPECT_THAT(activated_, testing::Each("nobody's"));
    EXPECT_THAT(session_.workspace.runningApplications(), testing::IsEmpty());
    EXPECT_EQ(session_.workspace.activeWindow(), first.window());
}

TEST_F(X11WorkspaceTest, ReadsTheActiveWindowWhateverIsThere) {
    TestWindow gone({"class=Gone"});
    ASSERT_TRUE(session_.waitForFront("Gone"));
    const auto destroyed = gone.window();
    gone.end();
    const TestWindow alpha({"class=Alpha"});
    ASSERT_TRUE(session_.waitForFront("Alpha"));
    session_.manager.reset(); // From here on nobody else changes the property.
    session_.handleWhatHappened();
    activated_.clear();
    const TestWindow unlisted({"class=Unlisted"});
    const std::vector<std::uint32_t> values[] = {{0}, {destroyed}, {}, {unlisted.window(), 0}};
    for (const auto& value : values) {
        session_.user.setValues(session_.user.root(), "_NET_ACTIVE_WINDOW", value);
        session_.handleWhatHappened();
    }
    EXPECT_THAT(activated_, testing::ElementsAre("Unlisted"));
}

// bspwm announces a new window before it moves the focus, and lists it last.
TEST(X11WorkspaceOnBspwm, EveryProgramThatIsOpenedComesToTheFrontOnce) {
    X11Session session("bspwm");
    std::vector<std::string> activated;
    const auto activations =
        session.workspace.addObserver(WorkspaceNotification::didActivateApplication,
                                      [&](const auto& each) { activated.push_back(*each.bundleIdentifier); });
    const TestWindow alpha({"class=Alpha"});
    EXPECT_TRUE(session.waitForFront("Alpha"));
    const TestWindow beta({"class=Beta"});
    EXPECT_TRUE(session.waitForFront("Beta"));
    session.user.activate(alpha.window());
    EXPECT_TRUE(session.waitForFront("Alpha"));
    session.handleWhatHappened(); // Alpha's window has told of its focus now.
    {
        const TestWindow gamma({"class=Gamma"});
        EXPECT_TRUE(session.waitForFront("Gamma"));
    }
    EXPECT_TRUE(session.waitForFront("Alpha"));
    session.handleWhatHappened();
    EXPECT_THAT(activated, testing::ElementsAre("Alpha", "Beta", "Alpha", "Gamma", "Alpha"));
}

TEST_F(X11WorkspaceTest, LivesThroughARestartOfTheWindowManagerAndFollowsTheFocusMeanwhile) {
    const TestWindow alpha({"class=Alpha"});
    const TestWindow beta({"class=Beta"});
    ASSERT_TRUE(session_.waitForFront("Beta"));
    session_.manager->end();
    session_.manager.reset();
    ASSERT_EQ(QProcess::execute("xdotool", {"windowfocus", QString::number(alpha.window())}), 0);
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    session_.manager.emplace("openbox");
    session_.user.activate(beta.window());
    ASSERT_TRUE(session_.waitForFront("Beta"));
    EXPECT_EQ(session_.workspace.runningApplications().size(), 2U);
    EXPECT_THAT(launched_, testing::ElementsAre("Alpha", "Beta"));
}

TEST_F(X11WorkspaceTest, KnowsWhatWasThereBefore) {
    const TestWindow alpha({"class=Alpha"});
    ASSERT_TRUE(session_.waitForFront("Alpha"));
    const X11Workspace later(*session_.x, session_.identities, session_.launchers, nullptr);
    EXPECT_EQ(later.frontmostApplication()->bundleIdentifier, "Alpha");
    EXPECT_EQ(later.activeWindow(), alpha.window());
}

TEST_F(X11WorkspaceTest, FollowsAWindowThatGetsItsClassLate) {
    const TestWindow window({"class=Early"});
    ASSERT_TRUE(session_.waitForFront("Early"));
    session_.user.setText(window.window(), "WM_CLASS", "STRING", std::string_view("late\0Late\0", 10));
    EXPECT_TRUE(session_.waitForFront("Late"));
    EXPECT_THAT(launched_, testing::ElementsAre("Early", "Late"));
    EXPECT_TRUE(session_.workspace.runningApplicationsWithBundleIdentifier("Early").empty());
}

TEST_F(X11WorkspaceTest, ThisProcessComesToTheFrontButIsNotAmongThoseThatRun) {
    const std::string own(maker::bundleIdentifier);
    const TestWindow alpha({"class=Alpha"});
    ASSERT_TRUE(session_.waitForFront("Alpha"));
    const auto window = session_.user.show();
    ASSERT_TRUE(session_.waitForFront(own));
    session_.user.map(session_.user.create({0, 0, 20, 20}, true)); // A tool tip, say.
    session_.user.activate(alpha.window());
    ASSERT_TRUE(session_.waitForFront("Alpha"));
    session_.user.activate(window);
    ASSERT_TRUE(session_.waitForFront(own));
    EXPECT_THAT(activated_, testing::ElementsAre("Alpha", own, "Alpha", own));
    EXPECT_THAT(launched_, testing::ElementsAre("Alpha"));
    EXPECT_EQ(session_.workspace.runningApplications().size(), 1U);
    EXPECT_TRUE(session_.workspace.runningApplicationsWithBundleIdentifier(own).empty());
}

TEST_F(X11WorkspaceTest, AProgramThatWithdrawsItsLastWindowLeavesTheFront) {
    Ids left;
    const auto departures = noteInto(left, WorkspaceNotification::didLeaveFront);
    const auto window = session_.user.show(), dialog = session_.user.show();
    ASSERT_TRUE(waitUntil([&] { return session_.workspace.activeWindow() == dialog; }));
    session_.user.unmap(dialog);
    ASSERT_TRUE(waitUntil([&] { return session_.workspace.activeWindow() == window; }));
    EXPECT_THAT(left, testing::IsEmpty());
    session_.user.unmap(window);
    ASSERT_TRUE(waitUntil([&] { return !session_.workspace.frontmostApplication(); }));
    EXPECT_EQ(left.size(), 1U);
    session_.user.map(window);
    EXPECT_TRUE(waitUntil([&] { return session_.workspace.activeWindow() == window; }));
}

TEST_F(X11WorkspaceTest, TellsOnceThatTheServerIsLost) {
    int lost = 0;
    const auto subscription = session_.x->onLost([&] { ++lost; });
    session_.server.end();
    ASSERT_TRUE(waitUntil([&] { return lost > 0; }));
    EXPECT_FALSE(session_.identities.ownerOf(1));
    EXPECT_TRUE(session_.workspace.runningApplications().empty());
    EXPECT_EQ(lost, 1);
}

TEST_F(X11WorkspaceTest, APanelIsAnAccessory) {
    const TestWindow program({"class=Program"});
    const TestWindow panel({"class=Panel", "type=DOCK"});
    const auto policyOf = [&](std::string_view id) -> std::optional<ActivationPolicy> {
        for (const auto& each : session_.workspace.runningApplications())
            if (each.bundleIdentifier == id) return each.activationPolicy;
        return std::nullopt;
    };
    EXPECT_TRUE(waitUntil([&] { return policyOf("Panel") == ActivationPolicy::accessory; }));
    EXPECT_TRUE(waitUntil([&] { return policyOf("Program") == ActivationPolicy::regular; }));
}

} // namespace
} // namespace quorvane
