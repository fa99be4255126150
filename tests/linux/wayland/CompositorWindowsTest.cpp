// What a session makes of what a compositor tells, told as a story: what happens, and what the program hears.

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/session/CompositorWindowList.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CompositorWindowsTest : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    static CompositorWindow window(const std::string& appId, double x = 0, bool isHidden = false) {
        CompositorWindow result;
        result.facts.wmClass = appId;
        result.title = appId + "'s";
        result.bounds = {x, 0, 300, 200};
        result.isHidden = isHidden;
        return result;
    }

    /// What is heard because of it.
    Lines heard(const std::function<void()>& happens) {
        happens();
        return std::exchange(lines_, {});
    }

    Subscription note(WorkspaceNotification notification, const char* what) {
        return applications_.workspace.addObserver(notification, [this, what](const auto& application) {
            lines_.push_back(what + application.bundleIdentifier.value_or("nobody's"));
        });
    }

    ScratchFolders folders_;
    DesktopEntries entries_ = DesktopEntries::ofEnvironment();
    SessionApplications applications_{entries_, nullptr};
    CompositorWindows windows_{applications_};
    CompositorWindowList list_{applications_, windows_};
    Lines lines_;
    std::vector<Subscription> subscriptions_ = [this] {
        std::vector<Subscription> all;
        all.push_back(note(WorkspaceNotification::didLaunchApplication, "launched "));
        all.push_back(note(WorkspaceNotification::didActivateApplication, "active "));
        all.push_back(note(WorkspaceNotification::didUnhideApplication, "shown again "));
        all.push_back(note(WorkspaceNotification::didLeaveFront, "left "));
        all.push_back(windows_.frontChanged.connect([this] { lines_.emplace_back("front moved"); }));
        all.push_back(list_.addLauncherObserver([this](const auto& open) {
            lines_.push_back(open ? "launcher " + open->bundleIdentifier : "launcher closed");
        }));
        return all;
    }();
};

TEST_F(CompositorWindowsTest, TellTheProgramWhoIsInFront) {
    EXPECT_THAT(heard([&] { windows_.changed(1, window("a")); }), ElementsAre("launched a"));
    EXPECT_THAT(heard([&] { windows_.activated(1); }), ElementsAre("active a"));
    EXPECT_THAT(heard([&] { windows_.activated(1); }), IsEmpty()) << "told twice";
    EXPECT_THAT(heard([&] { windows_.activated(2); }), IsEmpty()) << "before it is told what that is";
    EXPECT_THAT(heard([&] { windows_.changed(2, window("b")); }),
                ElementsAre("launched b", "active b", "front moved"));
    EXPECT_THAT(heard([&] { windows_.activated(noWindow); }), IsEmpty()) << "between two windows";
    EXPECT_EQ(applications_.workspace.frontmostApplication()->bundleIdentifier, "b");
    EXPECT_THAT(heard([&] { windows_.changed(2, window("b", 10)); }), ElementsAre("front moved"));
    EXPECT_THAT(heard([&] { windows_.changed(1, window("a", 10)); }), IsEmpty()) << "not in front";
    EXPECT_EQ(list_.windows().at(0).bounds.x, 10);
    EXPECT_EQ(list_.windows().at(0).name, "b's");
    EXPECT_THAT(heard([&] { windows_.closed(2); }), ElementsAre("left b", "front moved"));
    EXPECT_THAT(list_.windows(), IsEmpty());
    EXPECT_THAT(heard([&] { windows_.activated(1); }), ElementsAre("active a"));
    EXPECT_THAT(heard([&] { windows_.closed(7); }), IsEmpty());
    EXPECT_THAT(heard([&] { windows_.closed(1); }), ElementsAre("left a", "front moved"));
    EXPECT_THAT(heard([&] { windows_.changed(1, window("c")); }), ElementsAre("launched c"))
        << "another one by the number of one that had the focus";
}

TEST_F(CompositorWindowsTest, AWindowMayBeMinimisedAndMayNameItselfLate) {
    windows_.changed(1, window("a"));
    windows_.changed(2, window("early"));
    windows_.activated(2);
    lines_.clear();
    EXPECT_THAT(heard([&] { windows_.changed(1, window("a", 0, true)); }), IsEmpty());
    EXPECT_THAT(heard([&] { windows_.changed(1, window("a")); }), IsEmpty()) << "while another is in front";
    EXPECT_THAT(heard([&] { windows_.activated(1); }), ElementsAre("active a", "shown again a"));
    windows_.activated(2);
    lines_.clear();
    EXPECT_THAT(heard([&] { windows_.changed(2, window("late")); }),
                ElementsAre("launched late", "active late"));
}

TEST_F(CompositorWindowsTest, ALauncherLeavesTheApplicationInFrontWhereItIs) {
    windows_.changed(1, window("a"));
    windows_.activated(1);
    windows_.changed(2, window("krunner", 50));
    lines_.clear();
    EXPECT_THAT(heard([&] { windows_.activated(2); }), ElementsAre("launcher org.kde.krunner"));
    EXPECT_EQ(applications_.workspace.frontmostApplication()->bundleIdentifier, "a");
    EXPECT_EQ(list_.windows().at(0).bounds.x, 50);
    EXPECT_THAT(heard([&] { windows_.closed(2); }), ElementsAre("launcher closed"));
    EXPECT_THAT(heard([&] { windows_.activated(1); }), IsEmpty()) << "it was there all the time";
    const auto* withoutWindow = launcherOfDesktopId("rofi");
    EXPECT_THAT(heard([&] { windows_.launcherMoved(withoutWindow); }), ElementsAre("launcher rofi"));
    EXPECT_THAT(heard([&] { windows_.activated(noWindow); }), IsEmpty());
    EXPECT_THAT(heard([&] { windows_.launcherMoved(nullptr); }), ElementsAre("launcher closed"));
}

TEST_F(CompositorWindowsTest, AfterACompositorWasLostOnlyWhatItTellsAnewIsThere) {
    windows_.changed(1, window("a"));
    windows_.changed(2, window("b"));
    windows_.activated(2);
    lines_.clear();
    EXPECT_THAT(heard([&] {
                    windows_.tellingAnew();
                    windows_.changed(1, window("a"));
                    windows_.changed(3, window("c"));
                    windows_.activated(1);
                    windows_.toldAll();
                }),
                ElementsAre("launched c", "active a"));
    EXPECT_TRUE(applications_.workspace.runningApplicationsWithBundleIdentifier("b").empty());
}

TEST_F(CompositorWindowsTest, TheFrontWindowIsToldOfOnceForManyMoves) {
    windows_.changed(1, window("a"));
    windows_.activated(1);
    int told = 0;
    const auto observing = list_.addFrontWindowObserver([&] { ++told; });
    for (double x = 1; x <= 20; ++x)
        windows_.changed(1, window("a", x));
    EXPECT_TRUE(waitUntil([&] { return told > 0; }));
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace quorvane
