#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/x11/ServerSession.h"
#include "platform/linux/applications/OtherNames.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/desktop-files/ApplicationFiles.h"
#include "platform/linux/desktop-files/LinuxApplicationBundles.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

class X11ApplicationsTest : public testing::Test {
protected:
    using Ids = std::vector<std::string>;

    explicit X11ApplicationsTest(const QString& windowManager = "openbox") : session_(windowManager) {}

    Subscription noteInto(Ids& ids, WorkspaceNotification notification) {
        return session_.workspace.addObserver(notification, [&ids](const auto& application) {
            ids.push_back(application.bundleIdentifier.value_or("nobody's"));
        });
    }
    QString copyOfTestWindow(const char* name) {
        const auto path = session_.folders.home() + "/" + name;
        QFile::copy(QUORVANE_TEST_WINDOW, path);
        return path;
    }

    ServerSession session_;
    Ids activated_;
    Ids launched_;
    Subscription activations_ = noteInto(activated_, WorkspaceNotification::didActivateApplication);
    Subscription launches_ = noteInto(launched_, WorkspaceNotification::didLaunchApplication);
};

TEST_F(X11ApplicationsTest, KnowsTheApplicationOfAWindow) {
    const auto entry = [&](const QString& id, const char* lines) {
        session_.folders.write("data/applications/" + id + ".desktop",
                               "[Desktop Entry]\nType=Application\nName=A name\n" + QByteArray(lines));
    };
    for (const auto* id : {"org.maker.Gtk", "org.maker.Kde", "org.maker.Editor", "plain"})
        entry(id, "");
    entry("org.maker.Startup", "StartupWMClass=Odd Class\n");
    entry("org.maker.Tool", "Exec=env LANG=C /opt/bin/special --flag %U\n");
    entry("org.maker.Script", "Exec=python3 script.py\n");
    const auto special = copyOfTestWindow("special");
    const auto spelled = copyOfTestWindow("spelled");
    const auto python = copyOfTestWindow("python3.11");
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
        {spelled, {"class=SPELLED", "instance=other"}, "spelled"},
        {spelled, {"class=Spelled too"}, "Spelled too"},
        {python, {"class=Unknown", "instance=other"}, "Unknown"},
        {python, {"--", "/x/widget", "class=Widget"}, "widget"},
        {python, {"--", "/x/widget", "class=Unknown"}, "Unknown"},
        {standard, {"class=Unknown", "instance=other"}, "Unknown"},
        {standard, {"instance=other"}, "other"},
        {standard, {}, "quorvane_test_window"},
    };
    for (const auto& each : windows) {
        const TestWindow window(each.properties, each.program);
        session_.handleWhatHappened(); // The number of the last window, which has ended, is this one's, too.
        const auto* owner = session_.owners.ownerOf(window.window());
        ASSERT_TRUE(owner);
        EXPECT_EQ(owner->id, each.id) << each.properties.join(' ').toStdString();
        EXPECT_EQ(owner->pid, window.pid());
    }
}

TEST_F(X11ApplicationsTest, AProgramWithoutDesktopFileIsTheSameWhicheverWayItIsNamed) {
    const auto named = copyOfTestWindow("named"), chosen = copyOfTestWindow("chosen");
    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), "test.domain");
    auto& standard = stores.standardUserDefaults();
    const auto rule = [&](const char* id) {
        return AppRule::ofApplication(standard.objectForKey(key::autoInput), id).id();
    };
    setRuleInput(standard, "Named", "ru");
    setRuleInput(standard, chosen.toStdString(), "de");
    const OtherNames names(stores, session_.known.owners, session_.entries);
    EXPECT_EQ(rule("chosen"), "de");
    EXPECT_EQ(bundleIdentifierOfFile(session_.entries, chosen.toStdString()), "chosen");
    EXPECT_EQ(rule("named"), std::nullopt) << "nobody knows yet whose class it is";
    {
        const TestWindow window({"class=Named"}, named);
        ASSERT_TRUE(session_.waitForFront("named"));
    }
    EXPECT_EQ(rule("named"), "ru");
    EXPECT_EQ(rule("Named"), std::nullopt);
    setRuleInput(standard, "Named", "us");
    EXPECT_TRUE(waitUntil([&] { return !rule("Named"); }));
    EXPECT_EQ(rule("named"), "ru") << "what has been set for the program itself counts";

    // What is in the user's table, whether it runs or not.
    const LinuxApplicationBundles bundles(session_.entries);
    const std::pair<std::string, std::optional<std::string>> rows[] = {{"named", "named"},
                                                                       {"Kupfer.py", "Kupfer.py"},
                                                                       {"sh", "sh"},
                                                                       {"org.maker.Removed", std::nullopt},
                                                                       {"org.kde.krunner", "KRunner"}};
    for (const auto& [id, name] : rows) {
        const auto path = bundles.absolutePathForAppBundle(id);
        EXPECT_EQ(path ? std::optional(bundles.displayNameAtPath(*path)) : std::nullopt, name) << id;
    }
}

TEST_F(X11ApplicationsTest, WindowsThatNobodyCanIdentifyHaveNoIdentifier) {
    const TestWindow first({"orphan=1"});
    ASSERT_TRUE(waitUntil([&] { return activated_ == Ids{"nobody's"}; }));
    const TestWindow second({"orphan=1"});
    ASSERT_TRUE(waitUntil([&] { return activated_ == Ids(2, "nobody's"); }));
    session_.user.activate(first.window());
    EXPECT_TRUE(waitUntil([&] { return activated_ == Ids(3, "nobody's"); }));
    EXPECT_THAT(session_.workspace.runningApplications(), testing::IsEmpty());
}

TEST_F(X11ApplicationsTest, ReadsTheActiveWindowWhateverIsThere) {
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
    // A quit program's number may come again.
    const auto unshown = session_.user.create({0, 0, 20, 20}),
               menu = session_.user.create({0, 0, 20, 20}, true);
    session_.user.map(menu);
    const std::vector<std::uint32_t> values[] = {{0},    {destroyed}, {unshown},
                                                 {menu}, {},          {unlisted.window(), 0}};
    for (const auto* property : {"_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW"}) {
        for (const auto& value : values) {
            session_.user.setValues(session_.user.root(), property, value);
            session_.handleWhatHappened();
        }
    }
    EXPECT_THAT(activated_, testing::ElementsAre("Unlisted"));
    session_.user.map(unshown); // So it was the truth.
    session_.handleWhatHappened();
    ASSERT_EQ(QProcess::execute("xdotool", {"windowfocus", QString::number(unshown)}), 0);
    EXPECT_TRUE(session_.waitForFront(std::string(maker::bundleIdentifier)));
}

struct X11WorkspaceOnBspwm : X11ApplicationsTest {
    X11WorkspaceOnBspwm() : X11ApplicationsTest("bspwm") {}
};

// bspwm announces a new window before it moves the focus, and lists it last.
TEST_F(X11WorkspaceOnBspwm, EveryProgramThatIsOpenedComesToTheFrontOnce) {
    const TestWindow alpha({"class=Alpha"});
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    const TestWindow beta({"class=Beta"});
    EXPECT_TRUE(session_.waitForFront("Beta"));
    session_.user.activate(alpha.window());
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    session_.handleWhatHappened(); // Alpha's window has told of its focus now.
    {
        const TestWindow gamma({"class=Gamma"});
        EXPECT_TRUE(session_.waitForFront("Gamma"));
    }
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    session_.handleWhatHappened();
    EXPECT_THAT(activated_, testing::ElementsAre("Alpha", "Beta", "Alpha", "Gamma", "Alpha"));
}

TEST_F(X11ApplicationsTest, LivesThroughARestartOfTheWindowManagerAndFollowsTheFocusMeanwhile) {
    const TestWindow alpha({"class=Alpha"});
    const TestWindow beta({"class=Beta"});
    ASSERT_TRUE(session_.waitForFront("Beta"));
    session_.manager.reset();
    ASSERT_EQ(QProcess::execute("xdotool", {"windowfocus", QString::number(alpha.window())}), 0);
    EXPECT_TRUE(session_.waitForFront("Alpha"));
    session_.manager.emplace("openbox");
    session_.user.activate(beta.window());
    ASSERT_TRUE(session_.waitForFront("Beta"));
    EXPECT_EQ(session_.workspace.runningApplications().size(), 2U);
    EXPECT_THAT(launched_, testing::ElementsAre("Alpha", "Beta"));
    EXPECT_TRUE(waitUntil([&] { // The window manager tells later than the server.
        return session_.user.values(session_.user.root(), "_NET_ACTIVE_WINDOW") == std::vector{beta.window()};
    }));
    SessionApplications later(session_.entries, nullptr);
    const X11Applications telling(*session_.x, session_.owners, later.workspace);
    EXPECT_EQ(later.workspace.frontmostApplication()->bundleIdentifier, "Beta") << "what was there before";
    EXPECT_EQ(later.workspace.activeWindow(), beta.window());
}

TEST_F(X11ApplicationsTest, FollowsAWindowThatGetsItsClassLate) {
    const TestWindow window({"class=Early"});
    ASSERT_TRUE(session_.waitForFront("Early"));
    session_.user.setText(window.window(), "WM_CLASS", "STRING", std::string_view("late\0Late\0", 10));
    EXPECT_TRUE(session_.waitForFront("Late"));
    EXPECT_THAT(launched_, testing::ElementsAre("Early", "Late"));
    EXPECT_TRUE(session_.workspace.runningApplicationsWithBundleIdentifier("Early").empty());
}

TEST_F(X11ApplicationsTest, ThisProcessComesToTheFrontButIsNotAmongThoseThatRun) {
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

TEST_F(X11ApplicationsTest, AProgramThatWithdrawsItsLastWindowLeavesTheFront) {
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

TEST_F(X11ApplicationsTest, APanelIsAnAccessory) {
    const TestWindow program({"class=Program"}), panel({"class=Panel", "type=DOCK"});
    EXPECT_TRUE(waitUntil([&] {
        const auto running = session_.workspace.runningApplications();
        return running.size() == 2 && std::ranges::all_of(running, [](const auto& each) {
                   return each.activationPolicy == (each.bundleIdentifier == "Panel"
                                                        ? ActivationPolicy::accessory
                                                        : ActivationPolicy::regular);
               });
    }));
}

} // namespace
} // namespace quorvane
